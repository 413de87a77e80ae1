// SPDX-License-Identifier: MIT
#include "adapters/bus/HungBuses.h"

#include "base/Log.h"

#include <QDeadlineTimer>

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <iterator>
#include <memory>

namespace zeph {

namespace {

const char *const sessionVariable = "DBUS_SESSION_BUS_ADDRESS";
const char *const systemVariable = "DBUS_SYSTEM_BUS_ADDRESS";

// Refuses every connection at once.
const char *const nowhere = "unix:path=/dev/null";

/// The value of `key` in the first entry of a list of addresses, its escapes undone.
QByteArray valueIn(const QByteArray &address, const QByteArray &key) {
    const QByteArray first = address.split(';').constFirst();
    if (!first.startsWith("unix:")) {
        return {};
    }
    for (const QByteArray &pair : first.sliced(5).split(',')) {
        if (pair.startsWith(key + '=')) {
            return QByteArray::fromPercentEncoding(pair.sliced(key.size() + 1));
        }
    }
    return {};
}

/// The socket's name as the system takes it; empty for an address of another form.
QByteArray socketName(const QByteArray &address) {
    const QByteArray path = valueIn(address, "path");
    const QByteArray abstract = valueIn(address, "abstract");
    return !path.isEmpty() ? path : abstract.isEmpty() ? QByteArray() : '\0' + abstract;
}

/// A connection that greets a bus and waits for a word of it.
class Greeting {
public:
    explicit Greeting(const QByteArray &address) {
        const QByteArray name = socketName(address);
        sockaddr_un target{};
        target.sun_family = AF_UNIX;
        if (name.isEmpty() || static_cast<std::size_t>(name.size()) >= sizeof target.sun_path) {
            return;
        }
        std::memcpy(target.sun_path, name.constData(), static_cast<std::size_t>(name.size()));
        m_socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
        const auto length =
            static_cast<socklen_t>(offsetof(sockaddr_un, sun_path)) + socklen_t(name.size());
        m_isConnected =
            ::connect(m_socket, reinterpret_cast<const sockaddr *>(&target), length) == 0;
        if (m_isConnected) {
            const QByteArray user = QByteArray::number(::getuid()).toHex();
            const QByteArray greeting = '\0' + QByteArray("AUTH EXTERNAL ") + user + "\r\n";
            m_isAwaited = ::send(m_socket, greeting.constData(),
                                 static_cast<std::size_t>(greeting.size()), MSG_NOSIGNAL) > 0;
        } else {
            m_isAwaited = errno == EAGAIN; // so many wait for it already
        }
    }
    ~Greeting() {
        if (m_socket >= 0) {
            ::close(m_socket);
        }
    }
    Greeting(const Greeting &) = delete;
    Greeting &operator=(const Greeting &) = delete;

    /// Only a connected socket can answer: any other counts as hung up at once.
    pollfd request() const { return {m_isAwaited && m_isConnected ? m_socket : -1, POLLIN, 0}; }
    bool isAwaited() const { return m_isAwaited; }
    void noteAnswer() { m_isAwaited = false; }

private:
    int m_socket = -1;
    bool m_isConnected = false;
    bool m_isAwaited = false;
};

QByteArray sessionAddress() {
    const QByteArray address = qgetenv(sessionVariable);
    const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
    return !address.isEmpty() || runtime.isEmpty() ? address : "unix:path=" + runtime + "/bus";
}

QByteArray systemAddress() {
    const QByteArray address = qgetenv(systemVariable);
    return address.isEmpty() ? "unix:path=/run/dbus/system_bus_socket" : address;
}

} // namespace

std::vector<bool> findHungBuses(const std::vector<QByteArray> &addresses,
                                std::chrono::milliseconds patience) {
    const QDeadlineTimer deadline(patience);
    std::vector<std::unique_ptr<Greeting>> greetings;
    greetings.reserve(addresses.size());
    for (const QByteArray &address : addresses) {
        greetings.push_back(std::make_unique<Greeting>(address));
    }
    const auto isAwaited = [](const auto &greeting) { return greeting->isAwaited(); };
    while (std::any_of(greetings.begin(), greetings.end(), isAwaited) && !deadline.hasExpired()) {
        std::vector<pollfd> requests;
        requests.reserve(greetings.size());
        for (const auto &greeting : greetings) {
            requests.push_back(greeting->request());
        }
        ::poll(requests.data(), requests.size(), static_cast<int>(deadline.remainingTime()));
        for (std::size_t index = 0; index < requests.size(); ++index) {
            if (requests.at(index).revents != 0) { // its end is an answer too
                greetings.at(index)->noteAnswer();
            }
        }
    }
    std::vector<bool> areHung;
    std::transform(greetings.begin(), greetings.end(), std::back_inserter(areHung), isAwaited);
    return areHung;
}

void avoidHungBuses(std::chrono::milliseconds patience) {
    const std::vector<bool> areHung = findHungBuses({sessionAddress(), systemAddress()}, patience);
    if (areHung.at(0)) {
        qCWarning(logSystem) << "the session bus does not answer, and is left out";
        qputenv(sessionVariable, nowhere);
    }
    if (areHung.at(1)) {
        qCWarning(logSystem) << "the system bus does not answer, and is left out";
        qputenv(systemVariable, nowhere);
    }
}

} // namespace zeph
