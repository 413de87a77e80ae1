// SPDX-License-Identifier: MIT
#include "adapters/places/ZoneCity.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

/// Time zone data in a folder of the test's own.
class ZoneCityTest : public testing::Test {
protected:
    void write(const QString &name, const QByteArray &bytes) const {
        const QString path = m_folder.filePath(name);
        ASSERT_TRUE(QDir().mkpath(QFileInfo(path).path()));
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    std::optional<Coordinate> cityOf(const QString &zone) const {
        return zoneCity(zone, m_folder.path());
    }

    QTemporaryDir m_folder;
};

} // namespace

TEST_F(ZoneCityTest, knowsNothingWithoutTables) {
    EXPECT_EQ(cityOf(u"Europe/Berlin"_s), std::nullopt);
    EXPECT_EQ(zoneCity(u"Europe/Berlin"_s, u"/nonexistent"_s), std::nullopt);
}

TEST_F(ZoneCityTest, looksIntoTheNewerTableFirst) {
    write(u"zone1970.tab"_s, "DE\t+5000+01000\tEurope/Berlin\n");
    write(u"zone.tab"_s, "DE\t+6000+02000\tEurope/Berlin\nSE\t+5900+01800\tEurope/Stockholm\n");
    EXPECT_EQ(cityOf(u"Europe/Berlin"_s), (Coordinate{50, 10}));
    EXPECT_EQ(cityOf(u"Europe/Stockholm"_s), (Coordinate{59, 18}));
}

TEST_F(ZoneCityTest, followsAnotherNameOfAZone) {
    write(u"zone1970.tab"_s, "US\t+3400-11800\tAmerica/Los_Angeles\n");
    write(u"America/Los_Angeles"_s, "rules");
    ASSERT_TRUE(QDir(m_folder.path()).mkpath(u"US"_s));
    ASSERT_TRUE(QFile::link(u"../America/Los_Angeles"_s, m_folder.filePath(u"US/Pacific"_s)));
    EXPECT_EQ(cityOf(u"US/Pacific"_s), (Coordinate{34, -118}));
}

TEST_F(ZoneCityTest, hasNoCityForAZoneWithoutOne) {
    write(u"zone1970.tab"_s, "DE\t+5000+01000\tEurope/Berlin\n");
    for (const QString &zone : {u"Etc/UTC"_s, u"GMT+03:00"_s, QString(), u"../etc/passwd"_s}) {
        EXPECT_EQ(cityOf(zone), std::nullopt) << zone.toStdString();
    }
}

TEST_F(ZoneCityTest, isNotMisledByAFolderInPlaceOfATable) {
    ASSERT_TRUE(QDir(m_folder.path()).mkpath(u"zone1970.tab"_s));
    write(u"zone.tab"_s, "SE\t+5900+01800\tEurope/Stockholm\n");
    EXPECT_EQ(cityOf(u"Europe/Stockholm"_s), (Coordinate{59, 18}));
}

TEST(ZoneCity, findsCitiesInTheDataOfThisMachine) {
    for (const QString &zone : {u"Europe/Berlin"_s, u"Europe/Stockholm"_s, u"US/Pacific"_s,
                                u"Asia/Calcutta"_s, u"Pacific/Auckland"_s}) {
        EXPECT_TRUE(zoneCity(zone)) << zone.toStdString();
    }
}

} // namespace zeph
