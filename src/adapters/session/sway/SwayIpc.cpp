// SPDX-License-Identifier: MIT
#include "adapters/session/sway/SwayIpc.h"

#include "adapters/session/sway/SwaySocket.h"
#include "base/Log.h"
#include "ports/RunLoop.h"

#include <QFile>

#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <utility>

namespace zeph {

namespace {

constexpr std::size_t kPiece = 65536;
constexpr int kMostPieces = 16; // in one turn of the loop

// The first call after a second, the last one after two minutes.
constexpr std::chrono::seconds kFirstDelay{1};
constexpr int kMostFailures = 8;

// Answers alone are no sign that all is well: what comes after them may make no sense each time.
constexpr std::chrono::minutes kLasting{5};

const QByteArray kWindowEvents = R"(["workspace","window"])";
const QByteArray kAllEvents = R"(["workspace","window","barconfig_update","bar_state_update"])";

} // namespace

SwayIpc::Connection::Connection(int descriptor)
    : socket(descriptor),
      readable(descriptor, QSocketNotifier::Read),
      writable(descriptor, QSocketNotifier::Write) {
    writable.setEnabled(false);
}

SwayIpc::SwayIpc(RunLoop &runLoop, QString path) : m_runLoop(runLoop), m_path(std::move(path)) {
    if (!m_path.isEmpty()) {
        call();
    }
}

SwayIpc::~SwayIpc() = default;

Subscription SwayIpc::subscribeToStart(std::function<void()> handler) {
    return m_starts.subscribe(std::move(handler));
}

Subscription SwayIpc::subscribeToEnd(std::function<void()> handler) {
    return m_ends.subscribe(std::move(handler));
}

Subscription SwayIpc::subscribeToWindows(WindowHandler handler) {
    return m_windows.subscribe([this, handler = std::move(handler)] { handler(m_windowChange); });
}

Subscription SwayIpc::subscribeToEvents(EventHandler handler) {
    return m_events.subscribe(
        [this, handler = std::move(handler)] { handler(m_event, m_eventPayload); });
}

void SwayIpc::ask(SwayRequest kind, Answer answer) {
    send(kind, {}, std::move(answer));
}

void SwayIpc::call() {
    const int socket = connectToSway(m_path);
    if (socket < 0) {
        callAgain();
        return;
    }
    m_connection = std::make_unique<Connection>(socket);
    QObject::connect(&m_connection->readable, &QSocketNotifier::activated, &m_connection->readable,
                     [this] { read(); });
    QObject::connect(&m_connection->writable, &QSocketNotifier::activated, &m_connection->writable,
                     [this] { flush(); });
    send(SwayRequest::subscribe, kAllEvents, [this](const QByteArray &answer) {
        if (!swaySuccessIn(answer)) {
            // One event that it does not know costs all of them.
            send(SwayRequest::subscribe, kWindowEvents, [](const QByteArray &) {});
        }
    });
    m_runLoop.after(kLasting, m_connection->life.whileAlive([this] { m_failures = 0; }));
    m_starts.send();
}

void SwayIpc::callAgain() {
    if (m_failures >= kMostFailures || !QFile::exists(m_path)) {
        qCInfo(logSession, "sway is not to be reached");
        return;
    }
    const auto delay = kFirstDelay * (1 << m_failures);
    ++m_failures;
    m_runLoop.after(delay, m_owner.whileAlive([this] { call(); }));
}

void SwayIpc::send(SwayRequest kind, const QByteArray &payload, Answer answer) {
    if (!m_connection) {
        return;
    }
    m_connection->questions.push_back({kind, std::move(answer)});
    m_connection->unsent += swayRequest(kind, payload);
    flush();
}

void SwayIpc::flush() {
    QByteArray &unsent = m_connection->unsent;
    // A socket that was closed is noticed when it is read.
    const ssize_t count = ::send(m_connection->socket.get(), unsent.constData(),
                                 static_cast<std::size_t>(unsent.size()), MSG_NOSIGNAL);
    unsent.remove(0, std::max(count, ssize_t{0}));
    m_connection->writable.setEnabled(!unsent.isEmpty() && (count >= 0 || errno == EAGAIN));
}

void SwayIpc::read() {
    std::array<char, kPiece> piece{};
    for (int pieces = 0; m_connection && pieces < kMostPieces; ++pieces) {
        const ssize_t count = ::recv(m_connection->socket.get(), piece.data(), piece.size(), 0);
        if (count < 0 && (errno == EAGAIN || errno == EINTR)) {
            return;
        }
        if (count <= 0) {
            hangUp("sway hung up");
            return;
        }
        m_connection->reader.add(piece.data(), count);
        takeAll();
    }
}

void SwayIpc::takeAll() {
    while (m_connection) {
        const auto message = m_connection->reader.next();
        if (message) {
            take(*message);
            continue;
        }
        if (m_connection->reader.isBroken()) {
            hangUp("what sway says makes no sense");
        }
        return;
    }
}

void SwayIpc::take(const SwayMessage &message) {
    if (message.isEvent) {
        takeEvent(static_cast<SwayEvent>(message.kind), message.payload);
        return;
    }
    std::deque<Question> &questions = m_connection->questions;
    if (questions.empty() || static_cast<std::uint32_t>(questions.front().kind) != message.kind) {
        hangUp("sway answers what nobody asked");
        return;
    }
    const Answer answer = std::move(questions.front().answer);
    questions.pop_front();
    answer(message.payload);
}

void SwayIpc::takeEvent(SwayEvent kind, const QByteArray &payload) {
    if (kind != SwayEvent::window) {
        m_event = kind;
        m_eventPayload = payload;
        m_events.send();
        return;
    }
    if (swayTellsOfTitle(payload)) {
        return;
    }
    if (auto change = swayWindowChangeIn(payload)) {
        m_windowChange = *std::move(change);
        m_windows.send();
    }
}

void SwayIpc::hangUp(const char *reason) {
    qCInfo(logSession, "%s", reason);
    m_connection->readable.setEnabled(false);
    m_connection->writable.setEnabled(false);
    // Not at once: a notifier of it may be what led here.
    m_runLoop.post([ended = std::shared_ptr<Connection>(std::move(m_connection))] {});
    callAgain();
    m_ends.send();
}

} // namespace zeph
