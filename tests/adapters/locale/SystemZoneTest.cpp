// SPDX-License-Identifier: MIT
#include "adapters/locale/SystemZone.h"
#include "adapters/locale/IcuCalendar.h"
#include "support/DateOf.h"
#include "support/Environment.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <fstream>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// A folder that stands for /etc and /usr/share/zoneinfo, and a clock moved by hand.
class SystemZoneFiles : public testing::Test {
protected:
    SystemZoneFiles() : root(folder.path().toStdString()) {
        std::filesystem::create_directories(root / "zoneinfo" / "Europe");
        std::ofstream(root / "zoneinfo" / "Europe" / "Paris") << "zone";
    }

    void link(const std::filesystem::path &target) const {
        std::filesystem::remove(root / "localtime");
        std::filesystem::create_symlink(target, root / "localtime");
    }

    SystemZone zone() {
        return SystemZone(root / "localtime", [this] { return now; });
    }

    QTemporaryDir folder;
    std::filesystem::path root;
    std::chrono::steady_clock::time_point now{std::chrono::hours(1)};
    ScopedVariable tz{"TZ", std::nullopt};
};

} // namespace

TEST_F(SystemZoneFiles, takesTheZoneThatTheFileLinksTo) {
    link("/usr/share/zoneinfo/Asia/Tokyo");
    EXPECT_EQ(zone().id(), u"Asia/Tokyo"_s);
    link("../usr/share/zoneinfo/posix/America/New_York");
    EXPECT_EQ(zone().id(), u"America/New_York"_s);
}

TEST_F(SystemZoneFiles, followsAChainOfLinks) {
    std::filesystem::create_symlink(root / "zoneinfo" / "Europe" / "Paris", root / "zone");
    link(root / "zone");
    EXPECT_EQ(zone().id(), u"Europe/Paris"_s);
}

TEST_F(SystemZoneFiles, prefersTheVariableToTheFile) {
    link("/usr/share/zoneinfo/Asia/Tokyo");
    tz.set("Europe/London");
    EXPECT_EQ(zone().id(), u"Europe/London"_s);
    tz.set(":Europe/Madrid");
    EXPECT_EQ(zone().id(), u"Europe/Madrid"_s);
    tz.set(":/usr/share/zoneinfo/Africa/Cairo");
    EXPECT_EQ(zone().id(), u"Africa/Cairo"_s);
    tz.set("");
    EXPECT_EQ(zone().id(), u"Etc/UTC"_s);
}

TEST_F(SystemZoneFiles, followsTheFileThatTheVariableNames) {
    link(root / "zoneinfo" / "Europe" / "Paris");
    tz.set(":" + QByteArray::fromStdString((root / "localtime").string()));
    SystemZone named(root / "elsewhere", [this] { return now; });
    EXPECT_EQ(named.id(), u"Europe/Paris"_s);
    link("/usr/share/zoneinfo/Asia/Tokyo");
    now += std::chrono::seconds(2);
    EXPECT_TRUE(named.refresh());
    EXPECT_EQ(named.id(), u"Asia/Tokyo"_s);
}

TEST_F(SystemZoneFiles, readsARuleInTheVariableAsItsOffset) {
    link("/usr/share/zoneinfo/Asia/Tokyo");
    tz.set("<+0345>-3:45");
    const IcuCalendar calendar(u"en_US"_s, zone().id());
    const DateComponents fields = calendar.components(dateOf("2024-01-01T00:00:00Z"));
    EXPECT_EQ(fields.hour, 3);
    EXPECT_EQ(fields.minute, 45);
}

TEST_F(SystemZoneFiles, readsARuleInTheVariableWithItsSummerTime) {
    link("/usr/share/zoneinfo/Asia/Tokyo");
    tz.set("CET-1CEST,M3.5.0,M10.5.0/3");
    const IcuCalendar calendar(u"en_US"_s, zone().id());
    EXPECT_EQ(calendar.components(dateOf("2024-01-01T00:00:00Z")).hour, 1);
    EXPECT_EQ(calendar.components(dateOf("2024-07-01T00:00:00Z")).hour, 2);
}

TEST_F(SystemZoneFiles, seesAChangedLinkAfterASecondAndNotBefore) {
    link("/usr/share/zoneinfo/Asia/Tokyo");
    SystemZone zone(root / "localtime", [this] { return now; });
    link("/usr/share/zoneinfo/Europe/Rome");
    now += std::chrono::milliseconds(999);
    EXPECT_FALSE(zone.refresh());
    EXPECT_EQ(zone.id(), u"Asia/Tokyo"_s);
    now += std::chrono::milliseconds(1);
    EXPECT_TRUE(zone.refresh());
    EXPECT_EQ(zone.id(), u"Europe/Rome"_s);
    now += std::chrono::seconds(5);
    EXPECT_FALSE(zone.refresh());
}

TEST_F(SystemZoneFiles, seesAChangedVariable) {
    link("/usr/share/zoneinfo/Asia/Tokyo");
    SystemZone zone(root / "localtime", [this] { return now; });
    tz.set("America/Lima");
    now += std::chrono::seconds(1);
    EXPECT_TRUE(zone.refresh());
    EXPECT_EQ(zone.id(), u"America/Lima"_s);
}

TEST_F(SystemZoneFiles, tellsNoChangeWhenTheZoneStaysTheSame) {
    link("/usr/share/zoneinfo/Asia/Tokyo");
    SystemZone zone(root / "localtime", [this] { return now; });
    link("../usr/share/zoneinfo/Asia/Tokyo");
    now += std::chrono::seconds(1);
    EXPECT_FALSE(zone.refresh());
}

TEST_F(SystemZoneFiles, hasSomeZoneWhereTheFileIsMissing) {
    const IcuCalendar calendar(u"en_US"_s, zone().id());
    EXPECT_EQ(calendar.components(dateOf("2024-01-15T12:00:00Z")).year, 2024);
    EXPECT_FALSE(zone().id().isEmpty());
}

TEST(IcuCalendar, usesTheMachinesZoneByDefault) {
    const ScopedVariable tz("TZ", "Asia/Kolkata");
    const IcuCalendar calendar(u"en_US"_s);
    const DateComponents fields = calendar.components(dateOf("2024-01-01T00:00:00Z"));
    EXPECT_EQ(fields.hour, 5);
    EXPECT_EQ(fields.minute, 30);
}

} // namespace zeph
