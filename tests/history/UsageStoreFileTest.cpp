// SPDX-License-Identifier: MIT
#include "history/UsageStore.h"

#include "history/Database.h"
#include "history/PrivateFiles.h"
#include "support/FileMode.h"
#include "support/FullDisk.h"
#include "support/LoggedLines.h"
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
    static double saved(UsageStore &store) {
        const auto loaded = store.loadDailyStats(day);
        return loaded ? loaded->first.activeSeconds : -1;
    }
    /// Every operation on a store without its tables answers empty.
    static void expectEmpty(UsageStore &store) {
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
    /// Overwrites `count` bytes of the file from `start` on, all of them for -1.
    QByteArray damage(qsizetype start, qsizetype count) const {
        QByteArray bytes = content();
        EXPECT_GT(bytes.size(), 8192);
        const auto size = count < 0 ? bytes.size() - start : count;
        bytes.replace(start, size, QByteArray(size, '\xff'));
        put(bytes);
        return bytes;
    }
    QByteArray content() const { return content(path()); }
    static QByteArray content(const QString &name) {
        QFile file(name);
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

TEST_F(UsageStoreFileTest, aForeignFileIsSetAsideUnchangedAndANewOneBegun) {
    const QByteArray letter = QByteArray("Dear diary,\n").repeated(500);
    put(letter);
    std::unique_ptr<UsageStore> store;
    const QStringList lines = printedLines([&] { store = open(); });
    const QString error = u"[Zeph] sql error: file is not a database"_s;
    const QString told = u"[Zeph] the history was damaged and is kept as "_s + path(u".damaged"_s);
    EXPECT_EQ(lines, (QStringList{error, error, error, error, told}));
    EXPECT_EQ(content(path(u".damaged"_s)), letter);
    EXPECT_THAT(printedLines([&] { save(*store, 1); }), IsEmpty());
    EXPECT_EQ(saved(*store), 1);
    EXPECT_EQ(fileMode(path()), 0600);
}

TEST_F(UsageStoreFileTest, aDamagedFileReplacesNoEarlierOne) {
    for (const char *text : {"first", "second", "third"}) {
        put(text);
        printedLines([&] { open(); });
    }
    EXPECT_EQ(content(path(u".damaged"_s)), "first");
    EXPECT_EQ(content(path(u".damaged.2"_s)), "second");
    EXPECT_EQ(content(path(u".damaged.3"_s)), "third");
}

TEST_F(UsageStoreFileTest, aDamagedFileTakesItsSideFilesAlong) {
    put("the pages");
    for (const QString &side : {u"-wal"_s, u"-shm"_s}) {
        QFile file(path(side));
        ASSERT_TRUE(file.open(QFile::WriteOnly) && file.write(side.toLatin1()) == 4);
    }
    ASSERT_EQ(setDatabaseAside(path()), path(u".damaged"_s));
    EXPECT_EQ(content(path(u".damaged"_s)), "the pages");
    EXPECT_EQ(content(path(u".damaged-wal"_s)), "-wal");
    EXPECT_EQ(content(path(u".damaged-shm"_s)), "-shm");
    EXPECT_FALSE(QFile::exists(path(u"-wal"_s))) << "a new file would take it for its own";
}

TEST_F(UsageStoreFileTest, aDamagedFileThatCantBeSetAsideIsLeftAsItIs) {
    put("no database");
    ASSERT_TRUE(QDir().mkdir(path(u"-wal"_s)));
    ASSERT_TRUE(QDir().mkdir(path(u"-wal/in the way"_s)));
    ASSERT_TRUE(QFile(path(u".damaged-wal"_s)).open(QFile::WriteOnly));
    printedLines([&] {
        const auto store = open();
        save(*store, 1);
        expectEmpty(*store);
    });
    EXPECT_EQ(content(), "no database");
}

TEST_F(UsageStoreFileTest, aFileDamagedAtTheListOfItsTablesIsSetAside) {
    save(*open(), 7);
    const QByteArray damaged = damage(100, 2000);
    std::unique_ptr<UsageStore> store;
    const QStringList lines = printedLines([&] { store = open(); });
    EXPECT_THAT(lines, Each(testing::ResultOf(
                           [](const QString &line) { return line.startsWith("[Zeph] "_L1); },
                           testing::IsTrue())));
    EXPECT_EQ(content(path(u".damaged"_s)), damaged);
    save(*store, 1);
    EXPECT_EQ(saved(*store), 1);
}

TEST_F(UsageStoreFileTest, aFileWhoseDamageIsFoundLaterIsSetAsideThen) {
    save(*open(), 7);
    const QByteArray damaged = damage(4096, -1); // all rows, but not the list of the tables
    const auto store = open();
    ASSERT_FALSE(QFile::exists(path(u".damaged"_s)));
    store->loadDailyStats(day);
    printedLines([&] { EXPECT_EQ(saved(*store), -1); });
    EXPECT_EQ(content(path(u".damaged"_s)), damaged);
    save(*store, 1);
    EXPECT_EQ(saved(*store), 1);
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

TEST_F(UsageStoreFileTest, aDayThatCouldNotBeReadIsNotSavedOver) {
    save(*open(), 500);
    std::unique_ptr<UsageStore> store;
    printedLines([&] {
        const FullDisk full(2048); // room for what is printed, and for no page
        store = open();
        EXPECT_EQ(saved(*store), -1);
        EXPECT_THAT(store->loadAppUsage(day), IsEmpty());
    });
    EXPECT_FALSE(store->isKnown(UsageTable::totals, day));
    EXPECT_FALSE(store->isKnown(UsageTable::applications, day));
    EXPECT_TRUE(store->isKnown(UsageTable::totals, u"2023-11-15"_s));
    EXPECT_FALSE(store->saveDailyStats({}, {}, day));
    EXPECT_FALSE(store->saveAppUsage({{u"org.editor"_s, u"Editor"_s, 20, std::nullopt}}, day));

    EXPECT_EQ(saved(*store), 500) << "there is room again";
    ASSERT_THAT(store->loadAppUsage(day), SizeIs(1));
    EXPECT_EQ(store->loadAppUsage(day).front().seconds, 500);
    EXPECT_TRUE(store->isKnown(UsageTable::totals, day));
    save(*store, 520);
    EXPECT_EQ(saved(*store), 520);
}

TEST_F(UsageStoreFileTest, aDayThatCouldNotBeReadIsLoggedOnce) {
    save(*open(), 500);
    QStringList logged;
    printedLines([&] {
        const FullDisk full(2048);
        const auto store = open();
        logged = loggedLines(u"zeph.history"_s, [&] {
            store->loadDailyStats(day);
            store->loadDailyStats(day);
        });
    });
    EXPECT_EQ(logged, QStringList{u"what is stored of 2023-11-14 can't be read, so nothing is "
                                  "saved over it"_s});
}

TEST_F(UsageStoreFileTest, whatHasNoTablesYetGetsThemOnceThereIsRoom) {
    std::unique_ptr<UsageStore> store;
    printedLines([&] {
        const FullDisk full(2048);
        store = open();
        expectEmpty(*store);
        save(*store, 1);
    });
    EXPECT_EQ(saved(*store), -1);
    EXPECT_TRUE(store->isKnown(UsageTable::totals, day));
    EXPECT_THAT(printedLines([&] { save(*store, 2); }), IsEmpty());
    EXPECT_EQ(saved(*store), 2);
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
