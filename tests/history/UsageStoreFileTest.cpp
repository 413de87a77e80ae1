// SPDX-License-Identifier: MIT
#include "history/UsageStore.h"

#include "history/Database.h"
#include "support/FileMode.h"
#include "support/FullDisk.h"
#include "support/ManualClock.h"
#include "support/PrintedLines.h"
#include "support/UtcCalendar.h"

#include <QDir>
#include <QTemporaryDir>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::Each;
using testing::IsEmpty;
using testing::SizeIs;

namespace zeph {

namespace {

const auto day = u"2023-11-14"_s;

class UsageStoreFileTest : public testing::Test {
protected:
    QString folder() const { return base.filePath(u"data/Zeph"_s); }
    QString path(const QString &suffix = {}) const { return folder() + u"/zeph.sqlite"_s + suffix; }
    std::unique_ptr<UsageStore> open() const {
        return std::make_unique<UsageStore>(folder(), clock, calendar);
    }
    static void save(UsageStore &store, double seconds) {
        AppUsage app;
        app.bundleID = u"org.editor"_s;
        app.name = u"Editor"_s;
        app.seconds = seconds;
        store.saveAppUsage({app}, day);
        ActivitySummary summary;
        summary.activeSeconds = seconds;
        store.saveDailyStats(summary, {}, day);
    }
    static double saved(const UsageStore &store) {
        const auto loaded = store.loadDailyStats(day);
        return loaded ? loaded->first.activeSeconds : -1;
    }
    /// Every operation on a store without its tables answers empty.
    static void expectEmpty(const UsageStore &store) {
        EXPECT_THAT(store.loadAppUsage(day), IsEmpty());
        EXPECT_EQ(store.loadDailyStats(day), std::nullopt);
        EXPECT_EQ(store.averageKPM(false, 14), 0);
        EXPECT_EQ(store.averageActiveSeconds(14), 0);
    }
    void put(const QByteArray &content) const {
        QDir().mkpath(folder());
        QFile file(path());
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        ASSERT_EQ(file.write(content), content.size());
    }
    QByteArray content() const {
        QFile file(path());
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir base;
    ManualClock clock{1'700'000'000};
    UtcCalendar calendar;
};

TEST_F(UsageStoreFileTest, onlyTheUserMayReadTheFolderAndItsFiles) {
    const NoUmask open_to_all;
    const auto store = open();
    save(*store, 1);
    EXPECT_EQ(fileMode(folder()), 0700);
    EXPECT_EQ(fileMode(path()), 0600);
    EXPECT_EQ(fileMode(path(u"-wal"_s)), 0600);
    EXPECT_EQ(fileMode(path(u"-shm"_s)), 0600);
}

TEST_F(UsageStoreFileTest, aFileThatStoodOpenToOthersIsClosedToThem) {
    const NoUmask open_to_all;
    QDir().mkpath(folder());
    auto foreign = Database::open(path());
    foreign->exec(u"CREATE TABLE t (a)"_s);
    ASSERT_EQ(fileMode(path()), 0644);
    ASSERT_EQ(fileMode(path(u"-wal"_s)), 0644);
    const auto store = open();
    EXPECT_EQ(fileMode(path()), 0600);
    EXPECT_EQ(fileMode(path(u"-wal"_s)), 0600);
    EXPECT_EQ(fileMode(path(u"-shm"_s)), 0600);
}

TEST_F(UsageStoreFileTest, aFolderThatCantBeMadeLeavesAStoreThatKeepsNothing) {
    QFile inTheWay(base.filePath(u"data"_s));
    ASSERT_TRUE(inTheWay.open(QFile::WriteOnly));
    std::unique_ptr<UsageStore> store;
    EXPECT_EQ(printedLines([&] { store = open(); }),
              QStringList{u"[Zeph] failed to open db at "_s + path()});
    EXPECT_THAT(printedLines([&] {
                    save(*store, 1);
                    expectEmpty(*store);
                }),
                IsEmpty());
    EXPECT_EQ(store->dayKey(clock.now()), day);
}

TEST_F(UsageStoreFileTest, aFolderInTheFilesPlaceLeavesAStoreThatKeepsNothing) {
    QDir().mkpath(path());
    std::unique_ptr<UsageStore> store;
    EXPECT_EQ(printedLines([&] { store = open(); }),
              QStringList{u"[Zeph] failed to open db at "_s + path()});
    expectEmpty(*store);
    EXPECT_TRUE(QFileInfo(path()).isDir());
}

TEST_F(UsageStoreFileTest, aForeignFileIsNeverChanged) {
    const QByteArray letter = QByteArray("Dear diary,\n").repeated(500);
    put(letter);
    const QStringList lines = printedLines([&] {
        const auto store = open();
        save(*store, 1);
        expectEmpty(*store);
    });
    const QString reason = u"file is not a database"_s;
    const QString error = u"[Zeph] sql error: "_s + reason;
    const QString lost = u"[Zeph] prepare failed: "_s + reason;
    EXPECT_EQ(lines, (QStringList{error, error, error, error, lost, lost}));
    EXPECT_EQ(content(), letter);
}

TEST_F(UsageStoreFileTest, aDamagedFileIsLeftForItsOwnerToRepair) {
    save(*open(), 7);
    QByteArray damaged = content();
    ASSERT_GT(damaged.size(), 8192);
    damaged.replace(100, 2000, QByteArray(2000, '\xff')); // the list of the tables
    put(damaged);
    const QStringList lines = printedLines([&] {
        const auto store = open();
        save(*store, 1);
        expectEmpty(*store);
    });
    EXPECT_FALSE(lines.isEmpty());
    EXPECT_THAT(lines, Each(testing::ResultOf(
                           [](const QString &line) { return line.startsWith("[Zeph] "_L1); },
                           testing::IsTrue())));
    EXPECT_EQ(content(), damaged);
}

TEST_F(UsageStoreFileTest, anotherProgramsTablesAreLeftAlone) {
    QDir().mkpath(folder());
    Database::open(path())->exec(u"CREATE TABLE daily_stats (day TEXT, mood TEXT);"
                                 "INSERT INTO daily_stats VALUES ('2023-11-14', 'calm')"_s);
    const QStringList lines = printedLines([&] {
        const auto store = open();
        save(*store, 1);
        EXPECT_EQ(store->loadDailyStats(day), std::nullopt);
        EXPECT_THAT(store->loadAppUsage(day), SizeIs(1));
    });
    EXPECT_THAT(lines, SizeIs(1));
    const auto moods =
        Database::open(path())->query(u"SELECT day || mood FROM daily_stats"_s, {},
                                      [](const DatabaseRow &row) { return row.text(0); });
    EXPECT_THAT(moods, testing::ElementsAre(u"2023-11-14calm"_s));
}

TEST_F(UsageStoreFileTest, aLockedFileLosesOneSaveAndTheNextOneMakesUpForIt) {
    const auto store = open();
    save(*store, 1);
    const auto other = Database::open(path());
    ASSERT_TRUE(other->exec(u"BEGIN IMMEDIATE"_s));
    const QString locked = u"[Zeph] step failed: database is locked"_s;
    EXPECT_EQ(printedLines([&] { save(*store, 2); }), (QStringList{locked, locked}));
    EXPECT_EQ(saved(*store), 1);
    ASSERT_TRUE(other->exec(u"ROLLBACK"_s));
    EXPECT_THAT(printedLines([&] { save(*store, 3); }), IsEmpty());
    EXPECT_EQ(saved(*store), 3);
}

TEST_F(UsageStoreFileTest, aFullDiskKeepsWhatWasSavedAndTheNextSaveMakesUpForTheLostOnes) {
    auto store = open();
    save(*store, 1);
    const QStringList lines = printedLines([&] {
        const FullDisk full(4096);
        save(*store, 2);
    });
    EXPECT_THAT(lines, SizeIs(2));
    EXPECT_THAT(lines,
                Each(testing::ResultOf(
                    [](const QString &line) { return line.startsWith("[Zeph] step failed: "_L1); },
                    testing::IsTrue())));
    EXPECT_EQ(saved(*store), 1);
    save(*store, 3);
    store = open();
    EXPECT_EQ(saved(*store), 3);
}

TEST_F(UsageStoreFileTest, aDiskFullFromTheStartLeavesAStoreThatKeepsNothing) {
    std::unique_ptr<UsageStore> store;
    const QStringList lines = printedLines([&] {
        const FullDisk full(2048); // room for what is printed, and for no page
        store = open();
        save(*store, 1);
        expectEmpty(*store);
    });
    EXPECT_FALSE(lines.isEmpty());
    store.reset();
    EXPECT_THAT(printedLines([&] {
                    const auto later = open();
                    save(*later, 2);
                    EXPECT_EQ(saved(*later), 2);
                }),
                IsEmpty());
}

} // namespace

} // namespace zeph
