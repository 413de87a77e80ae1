// SPDX-License-Identifier: MIT
#include "adapters/places/OfflineGeocoder.h"

#include "support/ManualRunLoop.h"
#include "support/ManualTaskExecutor.h"
#include "support/QtPrinters.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

class OfflineGeocoderTest : public testing::Test {
protected:
    /// Makes a program that counts how often it is run and then runs `script`.
    void writeLister(const QByteArray &script) const {
        QFile file(lister());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("#!/bin/sh\necho >>'" + folder.filePath(u"runs"_s).toUtf8() + "'\n" + script);
        ASSERT_TRUE(file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    }
    qint64 runs() const { return QFile(folder.filePath(u"runs"_s)).size(); }
    QString lister() const { return folder.filePath(u"lister"_s); }

    void ask(const Coordinate &position) {
        geocoder->reverseGeocode(
            position, [this](const std::vector<Placemark> &places) { answers.push_back(places); });
    }
    void work() {
        executor.runAll();
        runLoop.drain();
    }

    QTemporaryDir folder;
    ManualClock clock;
    ManualRunLoop runLoop{clock};
    ManualTaskExecutor executor;
    std::unique_ptr<OfflineGeocoder> geocoder =
        std::make_unique<OfflineGeocoder>(executor, runLoop, lister());
    std::vector<std::vector<Placemark>> answers;
};

// Answers with Berlin, and for a position at the equator with the ocean.
const QByteArray berlinLister =
    "read north east\n"
    "if [ \"$north\" = 0 ]; then printf '\\t\\t\\tAtlantic Ocean\\t\\n'\n"
    "else printf 'Berlin\\tBerlin\\tGermany\\t\\t\\n'; fi\n";

} // namespace

TEST_F(OfflineGeocoderTest, answersOnTheMainThreadAndNeverInsideTheCall) {
    writeLister(berlinLister);
    ask({52.4, 13.1});
    EXPECT_TRUE(answers.empty());
    executor.runAll();
    EXPECT_TRUE(answers.empty());
    runLoop.drain();
    ASSERT_EQ(answers.size(), 1U);
    EXPECT_EQ(answers.at(0).at(0).locality, u"Berlin"_s);
    EXPECT_EQ(answers.at(0).at(0).country, u"Germany"_s);
}

TEST_F(OfflineGeocoderTest, runsItsListerForEachQuestionAndNotBefore) {
    writeLister(berlinLister);
    EXPECT_EQ(runs(), 0);
    ask({52.4, 13.1});
    ask({0, -30});
    work();
    EXPECT_EQ(runs(), 2);
    ASSERT_EQ(answers.size(), 2U);
    EXPECT_EQ(answers.at(0).at(0).locality, u"Berlin"_s);
    EXPECT_EQ(answers.at(1).at(0).ocean, u"Atlantic Ocean"_s);
    EXPECT_FALSE(answers.at(1).at(0).locality);
}

TEST_F(OfflineGeocoderTest, tellsItsListerTheWholePositionAndNobodyElse) {
    writeLister("cat >'" + folder.filePath(u"question"_s).toUtf8() + "'; echo $#\n");
    ask({52.123456789012, -13.5});
    work();
    QFile question(folder.filePath(u"question"_s));
    ASSERT_TRUE(question.open(QIODevice::ReadOnly));
    const QByteArrayList numbers = question.readAll().trimmed().split('\t');
    ASSERT_EQ(numbers.size(), 2);
    EXPECT_EQ(numbers.at(0).toDouble(), 52.123456789012);
    EXPECT_EQ(numbers.at(1).toDouble(), -13.5);
}

TEST_F(OfflineGeocoderTest, knowsNothingWithoutItsLister) {
    ask({0, -30});
    work();
    EXPECT_EQ(answers, std::vector<std::vector<Placemark>>(1));
}

TEST_F(OfflineGeocoderTest, takesAnAnswerThatIsNoneForNone) {
    for (const char *script :
         {"echo\n", "true\n", "echo Berlin\n", "yes Berlin | head -c 9999\n"}) {
        writeLister(script);
        ask({52.4, 13.1});
        work();
        EXPECT_TRUE(answers.back().empty()) << script;
    }
}

TEST_F(OfflineGeocoderTest, givesUpAListerThatFailsThreeTimes) {
    writeLister("exit 1\n");
    for (int question = 1; question <= 5; ++question) {
        ask({52.4, 13.1});
        work();
        EXPECT_EQ(runs(), std::min(question, 3));
    }
    EXPECT_EQ(answers.size(), 5U);
}

TEST_F(OfflineGeocoderTest, triesAgainAfterAFailure) {
    ask({52.4, 13.1});
    work();
    writeLister(berlinLister);
    ask({52.4, 13.1});
    work();
    EXPECT_EQ(answers.at(1).at(0).locality, u"Berlin"_s);
}

TEST_F(OfflineGeocoderTest, answersNobodyAfterItsEnd) {
    writeLister(berlinLister);
    ask({52.4, 13.1});
    executor.runAll();
    ask({52.4, 13.1});
    geocoder.reset();
    executor.runAll();
    runLoop.drain();
    EXPECT_TRUE(answers.empty());
}

TEST_F(OfflineGeocoderTest, listsNothingAfterItsEnd) {
    writeLister(berlinLister);
    ask({52.4, 13.1});
    geocoder.reset();
    executor.runAll();
    EXPECT_EQ(runs(), 0);
}

} // namespace zeph
