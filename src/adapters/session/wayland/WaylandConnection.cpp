// SPDX-License-Identifier: MIT
#include "adapters/session/wayland/WaylandConnection.h"

#include "adapters/session/wayland/WaylandSocket.h"
#include "base/Log.h"

#include <QAbstractEventDispatcher>

#include <cerrno>
#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

void logLoss(wl_display *display) {
    const int error = wl_display_get_error(display);
    if (error != EPROTO) {
        qCInfo(logSession, "the compositor is gone: error %d", error);
        return;
    }
    const wl_interface *interface = nullptr;
    std::uint32_t object = 0;
    const std::uint32_t code = wl_display_get_protocol_error(display, &interface, &object);
    qCWarning(logSession, "the compositor refused a request to %s: error %u",
              interface ? interface->name : "nothing", code);
}

} // namespace

WaylandConnection::Opened WaylandConnection::open(const QByteArray &display,
                                                  std::chrono::milliseconds patience) {
    const int socket = connectToCompositor(display);
    // Takes the descriptor over, also where it fails.
    Handle handle(socket < 0 ? nullptr : wl_display_connect_to_fd(socket));
    if (!handle) {
        return {nullptr, u"there is no Wayland compositor to draw on"_s};
    }
    std::unique_ptr<WaylandConnection> connection(new WaylandConnection(std::move(handle)));
    if (!connection->waitForAnswers(patience)) {
        return {nullptr, u"the Wayland compositor does not answer"_s};
    }
    return {std::move(connection), {}};
}

WaylandConnection::WaylandConnection(Handle display)
    : m_display(std::move(display)),
      m_readable(wl_display_get_fd(m_display.get()), QSocketNotifier::Read),
      m_writable(wl_display_get_fd(m_display.get()), QSocketNotifier::Write),
      m_registry(wl_display_get_registry(m_display.get())) {
    static constexpr wl_registry_listener listener{
        [](void *self, wl_registry * /*registry*/, std::uint32_t number, const char *interface,
           std::uint32_t version) {
            static_cast<WaylandConnection *>(self)->addGlobal({number, interface, version});
        },
        [](void *self, wl_registry * /*registry*/, std::uint32_t number) {
            static_cast<WaylandConnection *>(self)->removeGlobal(number);
        }};
    wl_registry_add_listener(m_registry.get(), &listener, this);
    m_writable.setEnabled(false);
    QObject::connect(&m_readable, &QSocketNotifier::activated, &m_context,
                     [this] { readEvents(); });
    QObject::connect(&m_writable, &QSocketNotifier::activated, &m_context, [this] { flush(); });
    if (auto *dispatcher = QAbstractEventDispatcher::instance()) {
        QObject::connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, &m_context,
                         [this] { flush(); });
    }
}

WaylandConnection::~WaylandConnection() {
    flush();
}

std::optional<WaylandGlobal> WaylandConnection::global(const wl_interface &interface) const {
    const auto found =
        std::find_if(m_globals.begin(), m_globals.end(), [&](const WaylandGlobal &global) {
            return global.interface == interface.name;
        });
    return found == m_globals.end() ? std::nullopt : std::optional(*found);
}

Subscription WaylandConnection::subscribeToGlobals(std::function<void()> handler) {
    return m_globalChanges.subscribe(std::move(handler));
}

Subscription WaylandConnection::subscribeToLoss(std::function<void()> handler) {
    return m_loss.subscribe(std::move(handler));
}

void WaylandConnection::addGlobal(WaylandGlobal global) {
    m_globals.push_back(std::move(global));
    m_globalsChanged = true;
}

void WaylandConnection::removeGlobal(std::uint32_t number) {
    const auto removed = std::erase_if(
        m_globals, [number](const WaylandGlobal &global) { return global.number == number; });
    m_globalsChanged = m_globalsChanged || removed > 0;
}

bool WaylandConnection::waitForAnswers(std::chrono::milliseconds patience) {
    const bool isAnswered = !m_isLost && makeRoundTrip(*display(), patience);
    tellOfGlobals();
    return isAnswered;
}

void WaylandConnection::readEvents() {
    if (m_isLost) {
        return;
    }
    // What was read before is to be delivered before more is read.
    while (wl_display_prepare_read(display()) != 0) {
        if (!deliverEvents()) {
            noteLoss();
            return;
        }
    }
    // Takes what is there and never waits for more.
    if (wl_display_read_events(display()) < 0 || !deliverEvents()) {
        noteLoss();
        return;
    }
    flush();
}

/// False when the connection is broken.
bool WaylandConnection::deliverEvents() {
    const bool isWell = wl_display_dispatch_pending(display()) >= 0;
    tellOfGlobals();
    return isWell;
}

void WaylandConnection::tellOfGlobals() {
    if (std::exchange(m_globalsChanged, false)) {
        m_globalChanges.send();
    }
}

void WaylandConnection::flush() {
    if (m_isLost) {
        return;
    }
    const bool isBehind = wl_display_flush(display()) < 0 && errno == EAGAIN;
    if (isBehind != m_writable.isEnabled()) {
        m_writable.setEnabled(isBehind);
    }
    // A broken connection is readable, and what the compositor said last may tell why.
    if (!isBehind && wl_display_get_error(display()) != 0) {
        noteLoss();
    }
}

void WaylandConnection::noteLoss() {
    if (std::exchange(m_isLost, true)) {
        return;
    }
    logLoss(display());
    m_readable.setEnabled(false);
    m_writable.setEnabled(false);
    QMetaObject::invokeMethod(
        &m_context, [this] { m_loss.send(); }, Qt::QueuedConnection);
}

} // namespace zeph
