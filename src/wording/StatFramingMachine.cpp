// SPDX-License-Identifier: MIT
#include "wording/StatFraming.h"

#include "model/BatteryInfo.h"
#include "model/DesktopSummary.h"
#include "model/DiskInfo.h"
#include "model/SystemLoad.h"
#include "wording/ByteCount.h"
#include "wording/Rounding.h"

using namespace Qt::StringLiterals;

// Sentences about the machine and its Desktop folder.
namespace zeph::StatFraming {

QString battery(const BatteryInfo &battery) {
    if (!battery.isPresent) {
        return u"Plugged in"_s;
    }
    const QString percent = QString::number(battery.percentage);
    const bool remainingKnown = battery.minutesRemaining.value_or(0) >= 1;
    const QString remaining = remainingKnown
                                  ? duration(static_cast<double>(*battery.minutesRemaining) * 60.0)
                                  : QString();
    if (battery.isCharging) {
        return remainingKnown ? u"Charging · %1%, full in %2"_s.arg(percent, remaining)
                              : u"Charging · %1%"_s.arg(percent);
    }
    if (battery.isPluggedIn) {
        return u"Plugged in · %1%"_s.arg(percent);
    }
    return remainingKnown ? u"%1% · about %2 left"_s.arg(percent, remaining)
                          : u"%1% battery"_s.arg(percent);
}

QString cpu(const SystemLoad &load) {
    const qint64 percent = rounded(load.cpuUsage * 100);
    const QString word = percent < 20 ? u"cool"_s : percent < 60 ? u"steady"_s : u"busy"_s;
    // Two wide, so that the line keeps its length between one digit and two.
    return u"%1% CPU · %2"_s.arg(percent, 2).arg(word);
}

QString memory(const SystemLoad &load) {
    return u"%1% memory in use"_s.arg(rounded(load.memoryPressure * 100));
}

QString disk(const DiskInfo &disk) {
    if (disk.totalBytes < 1) {
        return u"–"_s;
    }
    return u"%1 free of %2"_s.arg(byteCountFile(disk.freeBytes), byteCountFile(disk.totalBytes));
}

QString uptime(double seconds) {
    const qint64 whole = truncated(seconds);
    if (whole < 86400) {
        return u"Awake for "_s + duration(seconds);
    }
    return u"Awake for %1d %2h"_s.arg(whole / 86400).arg(whole % 86400 / 3600);
}

QString desktopHeadline(const DesktopSummary &desktop) {
    if (!desktop.available) {
        return u"Desktop tidiness needs file access"_s;
    }
    const auto found = desktop.counts.find(DesktopCategory::screenshots);
    const qint64 shots = found == desktop.counts.end() ? 0 : found->second;
    if (shots >= 20) {
        const QString size = desktop.screenshotBytes >= 1
                                 ? u" (%1)"_s.arg(byteCountFile(desktop.screenshotBytes))
                                 : QString();
        return u"%1 screenshots on your Desktop%2 · maybe time to clear a few"_s.arg(
            QString::number(shots), size);
    }
    const QString items = u"%1 items on your Desktop · "_s.arg(desktop.totalItems);
    if (desktop.totalItems >= 40) {
        return items + u"it's getting crowded"_s;
    }
    if (desktop.totalItems == 0) {
        return u"A clear Desktop · nicely done"_s;
    }
    if (shots >= 8) {
        return u"%1 screenshots collecting on your Desktop"_s.arg(shots);
    }
    return items + u"tidy enough"_s;
}

} // namespace zeph::StatFraming
