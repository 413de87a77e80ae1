// SPDX-License-Identifier: MIT
#include "platform/linux/places/OfflineGeocoder.h"

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

const QByteArray berlinLister = "printf '52.5\\t13.4\\tBerlin\\tBerlin\\tGermany\\n'\n";

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

TEST_F(OfflineGeocoderTest, listsTheCitiesOnceAndNotBeforeTheFirstQuestion) {
    writeLister(berlinLister);
    EXPECT_EQ(runs(), 0);
    ask({52.4, 13.1});
    ask({0, -30});
    work();
    ask({52.6, 13.4});
    work();
    EXPECT_EQ(runs(), 1);
    ASSERT_EQ(answers.size(), 3U);
    EXPECT_EQ(answers.at(1).at(0).ocean, u"Atlantic Ocean"_s);
    EXPECT_EQ(answers.at(2).at(0).locality, u"Berlin"_s);
}

TEST_F(OfflineGeocoderTest, knowsSeasWithoutItsLister) {
    ask({0, -30});
    ask({52.4, 13.1});
    work();
    ASSERT_EQ(answers.size(), 2U);
    EXPECT_EQ(answers.at(0).at(0).ocean, u"Atlantic Ocean"_s);
    EXPECT_TRUE(answers.at(1).empty());
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
