// SPDX-License-Identifier: MIT
#include "model/BatteryInfo.h"
#include "model/DesktopSummary.h"
#include "model/DiskInfo.h"
#include "model/SystemLoad.h"
#include "wording/StatFraming.h"

#include <gmock/gmock.h>

#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

std::string battery(bool isPresent, bool isCharging, bool isPluggedIn,
                    std::optional<qint64> minutes) {
    BatteryInfo info;
    info.percentage = 80;
    info.isPresent = isPresent;
    info.isCharging = isCharging;
    info.isPluggedIn = isPluggedIn;
    info.minutesRemaining = minutes;
    return StatFraming::battery(info).toStdString();
}

std::string cpu(double usage) {
    SystemLoad load;
    load.cpuUsage = usage;
    return StatFraming::cpu(load).toStdString();
}

std::string memory(double pressure) {
    SystemLoad load;
    load.memoryPressure = pressure;
    load.memoryUsedBytes = 1; // not what is shown
    load.memoryTotalBytes = 1;
    return StatFraming::memory(load).toStdString();
}

std::string desktop(qint64 items, std::optional<qint64> shots, qint64 bytes = 0,
                    bool available = true) {
    DesktopSummary summary;
    summary.available = available;
    summary.totalItems = items;
    summary.screenshotBytes = bytes;
    summary.counts[DesktopCategory::images] = 99;
    if (shots) {
        summary.counts[DesktopCategory::screenshots] = *shots;
    }
    return StatFraming::desktopHeadline(summary).toStdString();
}

} // namespace

TEST(FramingBattery, isPluggedInWithoutABatteryWhateverElseIsSet) {
    EXPECT_EQ(battery(false, true, true, 30), "Plugged in");
    EXPECT_EQ(battery(false, false, false, std::nullopt), "Plugged in");
}

TEST(FramingBattery, chargesWithOrWithoutAKnownTime) {
    EXPECT_EQ(battery(true, true, true, 65), "Charging · 80%, full in 1h 5m");
    EXPECT_EQ(battery(true, true, false, 1), "Charging · 80%, full in 1m");
    EXPECT_EQ(battery(true, true, true, 0), "Charging · 80%");
    EXPECT_EQ(battery(true, true, true, -1), "Charging · 80%");
    EXPECT_EQ(battery(true, true, true, std::nullopt), "Charging · 80%");
}

TEST(FramingBattery, isPluggedInWithoutCharging) {
    EXPECT_EQ(battery(true, false, true, 65), "Plugged in · 80%");
}

TEST(FramingBattery, drainsWithOrWithoutAKnownTime) {
    EXPECT_EQ(battery(true, false, false, 125), "80% · about 2h 5m left");
    EXPECT_EQ(battery(true, false, false, 1), "80% · about 1m left");
    EXPECT_EQ(battery(true, false, false, 0), "80% battery");
    EXPECT_EQ(battery(true, false, false, std::nullopt), "80% battery");
}

TEST(FramingCpu, padsASingleDigitAndChangesItsWordAtEachBoundary) {
    const std::pair<double, std::string> rows[] = {
        {0, " 0% CPU · cool"},     {0.05, " 5% CPU · cool"},   {0.094, " 9% CPU · cool"},
        {0.095, "10% CPU · cool"}, {0.194, "19% CPU · cool"},  {0.195, "20% CPU · steady"},
        {0.2, "20% CPU · steady"}, {0.59, "59% CPU · steady"}, {0.594, "59% CPU · steady"},
        {0.595, "60% CPU · busy"}, {0.6, "60% CPU · busy"},    {1, "100% CPU · busy"}};
    for (const auto &[usage, text] : rows) {
        EXPECT_EQ(cpu(usage), text) << usage;
    }
}

TEST(FramingMemory, showsThePressureAndNotUsedOverTotal) {
    EXPECT_EQ(memory(0), "0% memory in use");
    EXPECT_EQ(memory(0.4249), "42% memory in use");
    EXPECT_EQ(memory(0.425), "43% memory in use");
    EXPECT_EQ(memory(1), "100% memory in use");
}

TEST(FramingMachineDeathTest, endsTheProcessOnLoadsThatAreNotFinite) {
    EXPECT_DEATH(cpu(nan), "no 64-bit integer");
    EXPECT_DEATH(memory(std::numeric_limits<double>::infinity()), "no 64-bit integer");
}

TEST(FramingDisk, isADashWithoutATotal) {
    EXPECT_EQ(StatFraming::disk({0, 0}), u"–"_s);
    EXPECT_EQ(StatFraming::disk({5, -1}), u"–"_s);
}

TEST(FramingDisk, countsInDecimalUnits) {
    EXPECT_EQ(StatFraming::disk({123'450'000'000, 500'107'862'016}),
              u"123.45 GB free of 500.11 GB"_s);
    EXPECT_EQ(StatFraming::disk({0, 1}), u"Zero KB free of 1 byte"_s);
}

TEST(FramingUptime, showsDaysWithHoursFromADayOn) {
    const std::pair<double, std::string> rows[] = {{0, "Awake for 0s"},
                                                   {59.9, "Awake for 59s"},
                                                   {3660, "Awake for 1h 1m"},
                                                   {86399.9, "Awake for 23h 59m"},
                                                   {86400, "Awake for 1d 0h"},
                                                   {89999, "Awake for 1d 0h"},
                                                   {90000, "Awake for 1d 1h"},
                                                   {172800, "Awake for 2d 0h"},
                                                   {8640000 + 82800, "Awake for 100d 23h"}};
    for (const auto &[seconds, text] : rows) {
        EXPECT_EQ(StatFraming::uptime(seconds).toStdString(), text) << seconds;
    }
}

TEST(FramingDesktop, needsAccessBeforeAnythingElse) {
    EXPECT_EQ(desktop(0, std::nullopt, 0, false), "Desktop tidiness needs file access");
    EXPECT_EQ(desktop(45, 20, 5, false), "Desktop tidiness needs file access");
}

TEST(FramingDesktop, tellsScreenshotsBeforeTheCrowd) {
    EXPECT_EQ(desktop(45, 20, 1'500'000),
              "20 screenshots on your Desktop (1.5 MB) · maybe time to clear a few");
    EXPECT_EQ(desktop(45, 20, 1),
              "20 screenshots on your Desktop (1 byte) · maybe time to clear a few");
    EXPECT_EQ(desktop(45, 20, 0), "20 screenshots on your Desktop · maybe time to clear a few");
    EXPECT_EQ(desktop(45, 19, 1'500'000), "45 items on your Desktop · it's getting crowded");
}

TEST(FramingDesktop, isCrowdedFromFortyItems) {
    EXPECT_EQ(desktop(40, std::nullopt), "40 items on your Desktop · it's getting crowded");
    EXPECT_EQ(desktop(40, 8), "40 items on your Desktop · it's getting crowded");
    EXPECT_EQ(desktop(39, std::nullopt), "39 items on your Desktop · tidy enough");
}

TEST(FramingDesktop, isClearWithoutItems) {
    EXPECT_EQ(desktop(0, std::nullopt), "A clear Desktop · nicely done");
    EXPECT_EQ(desktop(0, 8), "A clear Desktop · nicely done");
}

TEST(FramingDesktop, collectsFromEightScreenshots) {
    EXPECT_EQ(desktop(10, 8), "8 screenshots collecting on your Desktop");
    EXPECT_EQ(desktop(39, 19), "19 screenshots collecting on your Desktop");
    EXPECT_EQ(desktop(10, 7), "10 items on your Desktop · tidy enough");
    EXPECT_EQ(desktop(1, std::nullopt), "1 items on your Desktop · tidy enough");
}

} // namespace zeph
