// SPDX-License-Identifier: MIT
#include "history/HistoryAhead.h"

#include "history/UsageStore.h"
#include "support/FileMode.h"
#include "support/ManualClock.h"
#include "support/PrintedLines.h"
#include "support/UtcCalendar.h"

#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const auto someDay = u"2023-11-14"_s;

class HistoryAheadTest : public testing::Test {
protected:
    QString folder() const { return base.filePath(u"data/Zeph"_s); }
    std::optional<double> savedSeconds() {
        HistoryAhead history(folder());
        UsageStore store(history, clock, calendar);
        const auto loaded = store.loadDailyStats(someDay);
        return loaded ? std::optional(loaded->first.activeSeconds) : std::nullopt;
    }
    void save(double seconds) {
        HistoryAhead history(folder());
        UsageStore store(history, clock, calendar);
        ActivitySummary summary;
        summary.activeSeconds = seconds;
        EXPECT_TRUE(store.saveDailyStats(summary, {}, someDay));
    }

    QTemporaryDir base;
    ManualClock clock{1'700'000'000};
    UtcCalendar calendar;
};

TEST_F(HistoryAheadTest, aNewHistoryIsTheUsersAlone) {
    EXPECT_EQ(savedSeconds(), std::nullopt);
    EXPECT_EQ(fileMode(folder()), 0700);
    EXPECT_EQ(fileMode(historyPath(folder())), 0600);
}

TEST_F(HistoryAheadTest, whatWasSavedIsThereAtTheNextStart) {
    save(120);
    EXPECT_EQ(savedSeconds(), 120);
}

TEST_F(HistoryAheadTest, aDamagedHistoryIsSetAsideAndANewOneBegun) {
    save(120);
    {
        QFile file(historyPath(folder()));
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        ASSERT_EQ(file.write(QByteArray(20000, '\xff')), 20000);
    }
    const QStringList printed = printedLines([this] { save(240); });
    EXPECT_TRUE(printed.join(u'\n').contains(u"the history was damaged"_s));
    EXPECT_TRUE(QFile::exists(historyPath(folder()) + u".damaged"_s));
    EXPECT_EQ(savedSeconds(), 240);
}

TEST_F(HistoryAheadTest, aFolderThatCannotBeMadeLeavesNone) {
    QFile blocking(base.filePath(u"data"_s));
    ASSERT_TRUE(blocking.open(QFile::WriteOnly));
    const QStringList printed = printedLines([this] {
        EXPECT_FALSE(HistoryAhead(folder()).take().database);
        EXPECT_EQ(savedSeconds(), std::nullopt);
    });
    EXPECT_EQ(printed.size(), 2) << "each tells that it could not be opened";
}

TEST_F(HistoryAheadTest, oneThatNobodyTakesIsClosedAtItsEnd) {
    { const HistoryAhead history(folder()); }
    EXPECT_TRUE(QFile::exists(historyPath(folder())));
    EXPECT_FALSE(QFile::exists(historyPath(folder()) + u"-wal"_s)) << "it is still open";
}

} // namespace
} // namespace zeph
