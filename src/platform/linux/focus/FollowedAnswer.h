// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

#include <functional>
#include <memory>
#include <optional>

class QDBusServiceWatcher;

namespace zeph {

/// A yes or no that a service is asked for once each time it appears, and when its signals tell
/// that it changed. It is given any time to answer, and never started by asking. Main thread only.
class FollowedAnswer {
public:
    /// What an answer means, an error included; absent for one that tells nothing.
    using Reader = std::function<std::optional<bool>(const QDBusMessage &answer)>;

    /// A `bus` that isn't connected is a session without the service. `news` runs when the value
    /// changed.
    FollowedAnswer(QDBusConnection bus, const QDBusMessage &question, Reader reader,
                   std::function<void()> news);
    ~FollowedAnswer();
    FollowedAnswer(const FollowedAnswer &) = delete;
    FollowedAnswer &operator=(const FollowedAnswer &) = delete;

    /// Absent while the service is away or has not answered.
    std::optional<bool> value() const { return m_value; }

    /// Takes over what a signal told.
    void set(std::optional<bool> value);

    /// Asks anew, one question at a time.
    void ask();

private:
    void ownerChanged(bool isThere);
    void answered(const QDBusMessage &answer);

    QDBusConnection m_bus;
    QDBusMessage m_question;
    Reader m_reader;
    std::function<void()> m_news;
    QObject m_context; // its end drops the calls under way
    std::unique_ptr<QDBusServiceWatcher> m_serviceWatch;
    std::optional<bool> m_value;
    quint64 m_life = 0; // answers of an earlier owner of the name are dropped
    bool m_isAsking = false;
    bool m_isStale = false; // to be asked again once the answer under way has come
};

} // namespace zeph
