// SPDX-License-Identifier: MIT
#include "history/Database.h"

#include "support/FullDisk.h"
#include "support/PrintedLines.h"

#include <QFile>
#include <QTemporaryDir>

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <thread>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace zeph {

// A value of any other type can't be handed over, so none is bound as something else.
static_assert(!std::is_constructible_v<DatabaseValue, QByteArray>);
static_assert(!std::is_constructible_v<DatabaseValue, QStringList>);
static_assert(!std::is_constructible_v<DatabaseValue, void *>);

namespace {

QString text(const DatabaseRow &row) {
    return row.text(0);
}
qint64 integer(const DatabaseRow &row) {
    return row.integer(0);
}

class DatabaseTest : public testing::Test {
protected:
    QString path(const QString &name = u"a.sqlite"_s) const { return folder.filePath(name); }

    QTemporaryDir folder;
    std::unique_ptr<Database> database = Database::open(path());
};

TEST_F(DatabaseTest, anUnwritablePathIsPrintedAndGivesNoObject) {
    const QString missing = path(u"no/such/folder/b.sqlite"_s);
    std::unique_ptr<Database> opened;
    const auto lines = printedLines([&] { opened = Database::open(missing); });
    EXPECT_EQ(opened, nullptr);
    EXPECT_EQ(lines, QStringList{u"[Zeph] failed to open db at "_s + missing});
}

TEST_F(DatabaseTest, aFolderInTheFilesPlaceGivesNoObject) {
    EXPECT_EQ(printedLines([&] { EXPECT_EQ(Database::open(folder.path()), nullptr); }),
              QStringList{u"[Zeph] failed to open db at "_s + folder.path()});
}

TEST_F(DatabaseTest, aLineIsThereAtOnceThoughStandardOutputIsAPipe) {
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe2(ends.data(), O_NONBLOCK), 0);
    std::fflush(stdout);
    const int before = dup(STDOUT_FILENO);
    dup2(ends[1], STDOUT_FILENO);
    Database::open(folder.path());
    std::array<char, 4096> bytes{};
    const auto count = read(ends[0], bytes.data(), bytes.size()); // before anybody flushes
    dup2(before, STDOUT_FILENO);
    for (const int descriptor : {before, ends[0], ends[1]}) {
        close(descriptor);
    }
    ASSERT_GT(count, 0);
    EXPECT_EQ(QString::fromUtf8(bytes.data(), count),
              u"[Zeph] failed to open db at %1\n"_s.arg(folder.path()));
}

TEST_F(DatabaseTest, opensInWriteAheadModeWithNormalSynchronisation) {
    EXPECT_THAT(database->query(u"PRAGMA journal_mode"_s, {}, text), ElementsAre(u"wal"_s));
    EXPECT_THAT(database->query(u"PRAGMA synchronous"_s, {}, integer), ElementsAre(1));
}

TEST_F(DatabaseTest, anAbsentParameterIsStoredAsNull) {
    database->exec(u"CREATE TABLE t (a)"_s);
    database->write(u"INSERT INTO t VALUES (?)"_s, {DatabaseValue()});
    EXPECT_THAT(database->query(u"SELECT typeof(a) FROM t"_s, {}, text), ElementsAre(u"null"_s));
}

TEST_F(DatabaseTest, aParameterLeftOutIsStoredAsNull) {
    database->exec(u"CREATE TABLE t (a, b)"_s);
    database->write(u"INSERT INTO t VALUES (?, ?)"_s, {qint64(1)});
    EXPECT_THAT(database->query(u"SELECT typeof(b) FROM t"_s, {}, text), ElementsAre(u"null"_s));
}

TEST_F(DatabaseTest, eachParameterKeepsItsType) {
    database->exec(u"CREATE TABLE t (a)"_s);
    for (const DatabaseValue &value :
         {DatabaseValue(2.0), DatabaseValue(qint64(1) << 62), DatabaseValue(u"3"_s)}) {
        database->write(u"INSERT INTO t VALUES (?)"_s, {value});
    }
    EXPECT_THAT(database->query(u"SELECT typeof(a) FROM t ORDER BY rowid"_s, {}, text),
                ElementsAre(u"real"_s, u"integer"_s, u"text"_s));
    EXPECT_THAT(database->query(u"SELECT a FROM t WHERE rowid = 2"_s, {}, integer),
                ElementsAre(qint64(1) << 62));
}

TEST_F(DatabaseTest, aTextIsStoredAsItsUtf8BytesAndOutlivesTheBoundValue) {
    database->exec(u"CREATE TABLE t (a)"_s);
    {
        auto name = std::make_unique<QString>(u"Zoë · 時計 · 🌤"_s);
        database->write(u"INSERT INTO t VALUES (?)"_s, {*name});
        name->fill(u'x');
    }
    EXPECT_THAT(database->query(u"SELECT a FROM t"_s, {}, text),
                ElementsAre(u"Zoë · 時計 · 🌤"_s));
    EXPECT_THAT(
        database->query(u"SELECT hex(a) FROM t"_s, {}, text),
        ElementsAre(QString::fromLatin1(u"Zoë · 時計 · 🌤"_s.toUtf8().toHex().toUpper())));
}

TEST_F(DatabaseTest, nullReadsAsZeroAndAsTheEmptyText) {
    EXPECT_THAT(database->query(u"SELECT NULL"_s, {}, text), ElementsAre(QString()));
    EXPECT_THAT(database->query(u"SELECT NULL"_s, {}, integer), ElementsAre(0));
    EXPECT_THAT(
        database->query(u"SELECT NULL"_s, {}, [](const DatabaseRow &row) { return row.real(0); }),
        ElementsAre(0.0));
}

TEST_F(DatabaseTest, invalidSqlIsPrintedByAWriteWhichChangesNothing) {
    database->exec(u"CREATE TABLE t (a); INSERT INTO t VALUES (7)"_s);
    EXPECT_EQ(printedLines([&] { database->write(u"INSERT INTO nowhere VALUES (1)"_s, {}); }),
              QStringList{u"[Zeph] prepare failed: no such table: nowhere"_s});
    EXPECT_THAT(database->query(u"SELECT a FROM t"_s, {}, integer), ElementsAre(7));
    EXPECT_THAT(database->query(u"SELECT count(*) FROM sqlite_master"_s, {}, integer),
                ElementsAre(1));
}

TEST_F(DatabaseTest, invalidSqlIsSilentlyEmptyInAQuery) {
    EXPECT_THAT(printedLines([&] {
                    const QString sql = u"INSERT INTO nowhere VALUES (1)"_s;
                    EXPECT_THAT(database->query(sql, {}, integer), IsEmpty());
                }),
                IsEmpty());
}

TEST_F(DatabaseTest, aViolatedConstraintIsPrintedAndTheStatementFinalised) {
    database->exec(u"CREATE TABLE t (a TEXT NOT NULL)"_s);
    EXPECT_EQ(
        printedLines([&] { database->write(u"INSERT INTO t VALUES (?)"_s, {DatabaseValue()}); }),
        QStringList{u"[Zeph] step failed: NOT NULL constraint failed: t.a"_s});
    // A statement left open would keep its table from being dropped, and the file from closing.
    EXPECT_TRUE(database->exec(u"DROP TABLE t"_s));
    database.reset();
    EXPECT_FALSE(QFile::exists(path() + u"-wal"_s));
}

TEST_F(DatabaseTest, execRunsEveryStatementOfItsText) {
    EXPECT_TRUE(database->exec(u"CREATE TABLE t (a); INSERT INTO t VALUES (1);"
                               "INSERT INTO t VALUES (2);"_s));
    EXPECT_THAT(database->query(u"SELECT a FROM t"_s, {}, integer), ElementsAre(1, 2));
}

TEST_F(DatabaseTest, execPrintsItsErrorAndAnswersFalse) {
    EXPECT_EQ(printedLines([&] { EXPECT_FALSE(database->exec(u"CREATE nonsense"_s)); }),
              QStringList{u"[Zeph] sql error: near \"nonsense\": syntax error"_s});
}

TEST_F(DatabaseTest, anErrorInTheMiddleOfAQueryLooksLikeTheEndOfTheRows) {
    database->exec(u"CREATE TABLE t (a); INSERT INTO t VALUES ('{}'), ('{'), ('{}')"_s);
    EXPECT_THAT(printedLines([&] {
                    EXPECT_THAT(database->query(u"SELECT json(a) FROM t"_s, {}, text),
                                ElementsAre(u"{}"_s));
                }),
                IsEmpty());
}

TEST_F(DatabaseTest, aReadTellsAnErrorFromRowsThatAreNotThere) {
    database->exec(u"CREATE TABLE t (a); INSERT INTO t VALUES ('{}'), ('{')"_s);
    const auto none = database->read(u"SELECT a FROM t WHERE a = 1"_s, {}, text);
    ASSERT_TRUE(none);
    EXPECT_THAT(*none, IsEmpty());
    EXPECT_FALSE(database->read(u"SELECT a FROM nowhere"_s, {}, text));
    EXPECT_FALSE(database->read(u"SELECT json(a) FROM t"_s, {}, text)) << "half of the rows";
    EXPECT_FALSE(database->isDamaged());
}

TEST_F(DatabaseTest, aWriteTellsWhetherItsDataIsLost) {
    database->exec(u"CREATE TABLE t (a TEXT NOT NULL)"_s);
    EXPECT_TRUE(database->write(u"INSERT INTO t VALUES (?)"_s, {u"x"_s}));
    printedLines([&] {
        EXPECT_FALSE(database->write(u"INSERT INTO t VALUES (?)"_s, {DatabaseValue()}));
        EXPECT_FALSE(database->write(u"INSERT INTO nowhere VALUES (1)"_s, {}));
    });
}

TEST_F(DatabaseTest, aWriteBlockedByAnotherConnectionIsPrintedAndTheNextOneSucceeds) {
    database->exec(u"CREATE TABLE t (a)"_s);
    const auto other = Database::open(path());
    ASSERT_TRUE(other->exec(u"BEGIN IMMEDIATE"_s));
    const QString insert = u"INSERT INTO t VALUES (?)"_s;
    EXPECT_EQ(printedLines([&] { database->write(insert, {qint64(1)}); }),
              QStringList{u"[Zeph] step failed: database is locked"_s});
    EXPECT_THAT(database->query(u"SELECT a FROM t"_s, {}, integer), IsEmpty());

    ASSERT_TRUE(other->exec(u"COMMIT"_s));
    EXPECT_THAT(printedLines([&] { database->write(insert, {qint64(2)}); }), IsEmpty());
    EXPECT_THAT(database->query(u"SELECT a FROM t"_s, {}, integer), ElementsAre(2));
}

TEST_F(DatabaseTest, aFullDiskLosesTheWriteAndNothingElse) {
    database->exec(u"CREATE TABLE t (a TEXT); INSERT INTO t VALUES ('kept')"_s);
    const QString insert = u"INSERT INTO t VALUES (?)"_s;
    const QStringList lines = printedLines([&] {
        const FullDisk full(65536);
        database->write(insert, {QString(200'000, u'x')});
    });
    ASSERT_EQ(lines.size(), 1);
    EXPECT_TRUE(lines.front().startsWith("[Zeph] step failed: "_L1)) << lines.front().toStdString();

    database->write(insert, {u"after"_s});
    EXPECT_THAT(database->query(u"SELECT a FROM t"_s, {}, text),
                ElementsAre(u"kept"_s, u"after"_s));
    EXPECT_THAT(database->query(u"PRAGMA integrity_check"_s, {}, text), ElementsAre(u"ok"_s));
}

TEST_F(DatabaseTest, aFileThatIsNoDatabaseOpensFailsEachStatementAndStaysAsItWas) {
    for (const qsizetype size : {5, 700, 20'000}) {
        const QString foreign = path(u"foreign%1"_s.arg(size));
        const QByteArray content(size, 'z');
        QFile file(foreign);
        ASSERT_TRUE(file.open(QFile::WriteOnly) && file.write(content) == size);
        file.close();
        const QStringList lines = printedLines([&] {
            const auto opened = Database::open(foreign);
            ASSERT_NE(opened, nullptr);
            EXPECT_FALSE(opened->exec(u"CREATE TABLE t (a)"_s));
            EXPECT_TRUE(opened->isDamaged());
            opened->write(u"INSERT INTO t VALUES (1)"_s, {});
            EXPECT_THAT(opened->query(u"SELECT a FROM t"_s, {}, integer), IsEmpty());
        });
        const QString error = u"[Zeph] sql error: file is not a database"_s;
        EXPECT_EQ(lines, (QStringList{error, error, error,
                                      u"[Zeph] prepare failed: file is not a database"_s}));
        ASSERT_TRUE(file.open(QFile::ReadOnly));
        EXPECT_EQ(file.readAll(), content);
    }
}

TEST_F(DatabaseTest, statementsOfSeveralThreadsRunOneAfterTheOther) {
    constexpr int threadCount = 4;
    constexpr int rowsEach = 100;
    database->exec(u"CREATE TABLE t (a INTEGER)"_s);
    std::atomic<int> inside = 0;
    std::atomic<int> overlaps = 0;
    const auto work = [&](qint64 first) {
        for (qint64 row = first; row < first + rowsEach; ++row) {
            database->write(u"INSERT INTO t VALUES (?)"_s, {row});
            database->query(u"SELECT a FROM t LIMIT 3"_s, {}, [&](const DatabaseRow &found) {
                overlaps += ++inside == 1 ? 0 : 1;
                std::this_thread::yield();
                --inside;
                return found.integer(0);
            });
        }
    };
    const QStringList lines = printedLines([&] {
        std::vector<std::thread> threads;
        for (qint64 thread = 0; thread < threadCount; ++thread) {
            threads.emplace_back(work, thread * rowsEach);
        }
        for (std::thread &thread : threads) {
            thread.join();
        }
    });
    EXPECT_THAT(lines, IsEmpty());
    EXPECT_EQ(overlaps, 0);
    EXPECT_THAT(database->query(u"SELECT count(DISTINCT a) FROM t"_s, {}, integer),
                ElementsAre(threadCount * rowsEach));
}

} // namespace

} // namespace zeph
