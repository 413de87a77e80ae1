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

    /// A name such as "Europe/Berlin", an offset such as "UTC+03:00" or a rule such as
    /// "CET-1CEST,M3.5.0,M10.5.0/3": what `ZoneOffsets` understands.
    const QString &id() const { return m_id; }

private:
    /// Everything that `id` was found from, cheap to read again.
    struct Source {
        bool hasVariable = false;
        QByteArray variable;
        std::filesystem::path file; ///< that the variable names, else the machine's own
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
