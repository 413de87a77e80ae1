// SPDX-License-Identifier: MIT
#include "adapters/apps/FolderMonitor.h"

#include "support/WaitUntil.h"

#include <QDir>
#include <QSaveFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

class FolderMonitorTest : public testing::Test {
protected:
    QString path(const QString &name) const { return m_room.filePath(name); }

    /// As desktops write their settings: another file takes the place of the old one.
    void put(const QString &name) const {
        QSaveFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_TRUE(file.commit());
    }

    /// Whether a monitor of that path tells of what `change` does, which happens in the folder.
    bool tells(const QString &name, const std::function<void()> &change) const {
        bool isTold = false;
        bool isFolderTold = false;
        FolderMonitor one({path(name)});
        FolderMonitor folder({m_room.path()});
        one.whenChanged([&] { isTold = true; });
        folder.whenChanged([&] { isFolderTold = true; });
        change();
        EXPECT_TRUE(waitUntil([&] { return isFolderTold; }));
        // Whatever was to be told of it is on its way by now.
        runLoopFor(std::chrono::milliseconds(50));
        return isTold;
    }

private:
    QTemporaryDir m_room;
};

} // namespace

TEST_F(FolderMonitorTest, aFileIsToldOfAlone) {
    put(u"settings"_s);
    EXPECT_FALSE(tells(u"settings"_s, [&] { put(u"another"_s); }));
    EXPECT_TRUE(tells(u"settings"_s, [&] { put(u"settings"_s); }));
    EXPECT_TRUE(tells(u"settings"_s, [&] { QFile::remove(path(u"settings"_s)); }));
}

TEST_F(FolderMonitorTest, aFileIsToldOfWhenItComes) {
    EXPECT_FALSE(tells(u"settings"_s, [&] { put(u"another"_s); }));
    EXPECT_TRUE(tells(u"settings"_s, [&] { put(u"settings"_s); }));
}

TEST_F(FolderMonitorTest, ofAFolderEverythingIs) {
    QDir().mkpath(path(u"folder"_s));
    EXPECT_TRUE(tells(u"."_s, [&] { put(u"any"_s); }));
    EXPECT_FALSE(tells(u"folder"_s, [&] { put(u"beside"_s); }));
}

TEST_F(FolderMonitorTest, nothingIsToldWithoutTheLibrary) {
    bool isTold = false;
    FolderMonitor without({path(u"."_s)}, nullptr);
    without.whenChanged([&] { isTold = true; });
    EXPECT_TRUE(tells(u"."_s, [&] { put(u"any"_s); }));
    EXPECT_FALSE(isTold);
}

} // namespace zeph
