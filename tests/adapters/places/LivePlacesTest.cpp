// SPDX-License-Identifier: MIT
#include "adapters/bus/PrivateBus.h"
#include "adapters/loop/QtRunLoop.h"
#include "adapters/loop/QtTaskExecutor.h"
#include "adapters/places/OfflineGeocoder.h"
#include "adapters/power/QuietestHold.h"
#include "support/QtPrinters.h"

#include <QElapsedTimer>
#include <QThread>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

class LivePlaces : public testing::Test {
protected:
    void open() {
        geocoder.reset();
        geocoder =
            std::make_unique<OfflineGeocoder>(executor, runLoop, QStringLiteral(ZEPH_CITY_LISTER));
    }
    void ask(const Coordinate &position) {
        geocoder->reverseGeocode(position, [this](const std::vector<Placemark> &places) {
            EXPECT_EQ(QThread::currentThread(), QCoreApplication::instance()->thread());
            answers.push_back(places);
        });
    }
    bool answered(std::size_t count) {
        return eventually([&] { return answers.size() == count; });
    }

    QtRunLoop runLoop;
    QtTaskExecutor executor{2};
    std::unique_ptr<OfflineGeocoder> geocoder;
    std::vector<std::vector<Placemark>> answers;
};

TEST_F(LivePlaces, answersOnTheMainThread) {
    open();
    ask({52.52, 13.405});
    ASSERT_TRUE(answered(1));
    EXPECT_EQ(answers.at(0).at(0).locality, u"Berlin"_s);
    EXPECT_EQ(answers.at(0).at(0).country, u"Germany"_s);
}

TEST_F(LivePlaces, mayBeAskedFromAnyThread) {
    open();
    for (int question = 0; question < 20; ++question) {
        executor.run([this] { ask({52.52, 13.405}); });
    }
    EXPECT_TRUE(answered(20));
}

TEST_F(LivePlaces, neverHoldTheMainThread) {
    const double hold = quietestHoldMs([&](const MainThreadWatch &watch) {
        answers.clear();
        open();
        for (double longitude = -180; longitude < 180; longitude += 36) {
            ask({20, longitude});
        }
        EXPECT_TRUE(eventually([&] { return answers.size() == 10 && watch.beats() > 50; }));
    });
    RecordProperty("hold", std::to_string(hold));
    EXPECT_LT(hold, 5);
}

TEST_F(LivePlaces, endAtOnceWithQuestionsUnderWay) {
    open();
    for (int question = 0; question < 1000; ++question) {
        ask({20, 20});
    }
    geocoder.reset();
    executor.beginShutdown();
    const std::size_t before = answers.size();
    runLoop.post([this] { answers.emplace_back(); });
    ASSERT_TRUE(answered(before + 1)) << "and nothing came with it";
}

} // namespace

} // namespace zeph
