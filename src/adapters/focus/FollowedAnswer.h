// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/bus/BusService.h"

#include <limits>
#include <optional>

namespace zeph {

/// A question to a service about a switch.
struct SwitchQuestion {
    QString service;
    QString path;
    QString interface;
    QString method;
    QVariantList arguments;
};

/// A yes or no that a service is asked for once each time it appears, and when its signals tell
/// that it changed. Main thread only.
class FollowedAnswer {
public:
    /// What an answer means, an error included; absent for one that tells nothing.
    using Reader = std::function<std::optional<bool>(const QDBusMessage &answer)>;

    /// A desktop that starts or swaps can take longer than the bus library's own limit. Nothing
    /// waits for the answer, and the bus itself answers for a service that ends.
    static constexpr int anyTime = std::numeric_limits<int>::max();

    /// `news` runs when the value changed. An answer that takes more than `timeoutMilliseconds`
    /// is an error.
    FollowedAnswer(const QDBusConnection &bus, SwitchQuestion question, Reader reader,
                   std::function<void()> news, int timeoutMilliseconds = anyTime);
    FollowedAnswer(const FollowedAnswer &) = delete;
    FollowedAnswer &operator=(const FollowedAnswer &) = delete;

    /// Absent while the service is away or has not answered.
    std::optional<bool> value() const { return m_value; }

    /// Takes over what a signal told.
    void set(std::optional<bool> value);

    /// Asks anew, one question at a time.
    void ask();

    BusService &service() { return m_service; }

private:
    void ownerChanged();
    void answered(const QDBusMessage &answer);

    const SwitchQuestion m_question;
    Reader m_reader;
    std::function<void()> m_news;
    int m_timeoutMilliseconds;
    std::optional<bool> m_value;
    bool m_isAsking = false;
    bool m_isStale = false; // to be asked again once the answer under way has come
    BusService m_service;   // last, since it calls back
};

} // namespace zeph
