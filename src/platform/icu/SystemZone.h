// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <chrono>
#include <filesystem>
#include <functional>

namespace zeph {

/// The time zone the machine is set to: TZ when it is set, else the zone file that `localtime`
/// links to. Follows a later change of either.
class SystemZone {
public:
    using MonotonicNow = std::function<std::chrono::steady_clock::time_point()>;

    explicit SystemZone(std::filesystem::path localtime = "/etc/localtime",
                        MonotonicNow now = std::chrono::steady_clock::now);

    /// Looks for a change, at most once a second; true when the zone is another one now.
    bool refresh();

    /// A zone name that the locale library knows, such as "Europe/Berlin" or "GMT+03:00".
    const QString &id() const { return m_id; }

private:
    /// Everything that `id` was found from, cheap to read again.
    struct Source {
        bool hasVariable = false;
        QByteArray variable;
        std::filesystem::path target;
        std::filesystem::file_time_type changed;

        bool operator==(const Source &) const = default;
    };

    Source readSource() const;
    QString resolve(const Source &source) const;

    std::filesystem::path m_localtime;
    MonotonicNow m_now;
    std::chrono::steady_clock::time_point m_lastLook;
    Source m_source;
    QString m_id;
};

} // namespace zeph
