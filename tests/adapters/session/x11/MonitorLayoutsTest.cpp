// SPDX-License-Identifier: MIT
#include "ScreensFixture.h"

#include "adapters/session/identity/EdidBlock.h"

#include <map>
#include <set>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// Scales that the test tells.
class FakeScales : public MonitorScales {
public:
    std::optional<double> scaleOf(const QString &connector,
                                  const QRect & /*place*/) const override {
        const auto found = m_scales.find(connector);
        return found != m_scales.end() ? std::optional(found->second) : std::nullopt;
    }
    Subscription subscribe(std::function<void()> handler) override {
        return m_changes.subscribe(std::move(handler));
    }

    void tell(std::map<QString, double> scales) {
        m_scales = std::move(scales);
        m_changes.send();
    }

private:
    std::map<QString, double> m_scales;
    ChangePublisher m_changes;
};

/// Monitors as the test arranges them on the root window, the first on the server's output.
class MonitorLayoutsTest : public FollowedScreensTest {
protected:
    struct Placed {
        QString name; ///< begins with "*" on the primary one
        QRect place;
    };

    void arrange(const std::vector<Placed> &monitors) {
        remove();
        QString output = u"screen"_s;
        for (const Placed &monitor : monitors) {
            const QRect &place = monitor.place;
            setMonitor(monitor.name,
                       u"%1/%2x%3/%4+%5+%6"_s.arg(place.width())
                           .arg(place.width() / 4)
                           .arg(place.height())
                           .arg(place.height() / 4)
                           .arg(place.x())
                           .arg(place.y()),
                       output);
            output = u"none"_s;
            m_names.append(monitor.name.startsWith(u'*') ? monitor.name.sliced(1) : monitor.name);
        }
    }

    void remove() {
        for (const QString &name : std::exchange(m_names, {})) {
            xrandr({u"--delmonitor"_s, name});
        }
    }

    /// The names of all screens and where they are, the main one first.
    std::vector<std::pair<QString, QRect>> now() const {
        std::vector<std::pair<QString, QRect>> found;
        for (const Screen &screen : screens.all()) {
            found.emplace_back(screen.persistentID.value_or(QString()), screen.deviceFrame);
        }
        return found;
    }

    bool waitForScreens(const std::vector<std::pair<QString, QRect>> &expected) {
        return waitUntil([&] { return now() == expected; });
    }

private:
    QStringList m_names;
};

const QRect kQuarter(0, 0, 640, 400);
const QRect kRightQuarter(640, 0, 640, 400);
const QRect kLowQuarter(0, 400, 640, 400);
const QRect kLastQuarter(640, 400, 640, 400);

} // namespace

TEST_F(MonitorLayoutsTest, hasAScreenForEachOfFour) {
    arrange({{u"a"_s, kQuarter},
             {u"b"_s, kRightQuarter},
             {u"c"_s, kLowQuarter},
             {u"d"_s, kLastQuarter}});
    EXPECT_TRUE(waitForScreens({{u"a"_s, kQuarter},
                                {u"b"_s, kRightQuarter},
                                {u"c"_s, kLowQuarter},
                                {u"d"_s, kLastQuarter}}));
    std::set<std::optional<quint32>> numbers;
    for (const Screen &screen : screens.all()) {
        numbers.insert(screen.displayID);
    }
    EXPECT_EQ(numbers.size(), 4U);
    arrange({{u"a"_s, kQuarter}, {u"d"_s, kLastQuarter}});
    EXPECT_TRUE(waitForScreens({{u"a"_s, kQuarter}, {u"d"_s, kLastQuarter}}));
}

TEST_F(MonitorLayoutsTest, hasOneScreenForMirrorsUntilTheyPart) {
    arrange({{u"a"_s, kQuarter}, {u"b"_s, kQuarter}, {u"c"_s, kRightQuarter}});
    EXPECT_TRUE(waitForScreens({{u"a"_s, kQuarter}, {u"c"_s, kRightQuarter}}));
    arrange({{u"a"_s, kQuarter}, {u"b"_s, kLowQuarter}, {u"c"_s, kRightQuarter}});
    EXPECT_TRUE(
        waitForScreens({{u"a"_s, kQuarter}, {u"b"_s, kLowQuarter}, {u"c"_s, kRightQuarter}}));
}

TEST_F(MonitorLayoutsTest, hasAScreenAsItStandsAfterATurn) {
    arrange({{u"a"_s, {0, 0, 600, 400}}, {u"b"_s, {600, 0, 600, 400}}});
    ASSERT_TRUE(waitUntil([&] { return screens.all().size() == 2; }));
    arrange({{u"a"_s, {0, 0, 400, 600}}, {u"b"_s, {400, 0, 600, 400}}});
    EXPECT_TRUE(waitForScreens({{u"a"_s, {0, 0, 400, 600}}, {u"b"_s, {400, 0, 600, 400}}}));
    EXPECT_EQ(screens.main()->frame, QRectF(0, 0, 400, 600));
}

TEST_F(MonitorLayoutsTest, eachScreenHasPointsOfItsOwnSize) {
    FakeScales scales;
    screens.setScales(scales);
    arrange({{u"a"_s, kQuarter},
             {u"b"_s, kRightQuarter},
             {u"c"_s, kLowQuarter},
             {u"d"_s, kLastQuarter}});
    ASSERT_TRUE(waitUntil([&] { return screens.all().size() == 4; }));
    const int before = calls;
    scales.tell({{u"a"_s, 1}, {u"b"_s, 1.25}, {u"c"_s, 1.5}, {u"d"_s, 2}});
    EXPECT_EQ(calls, before + 1);
    const auto all = screens.all();
    EXPECT_EQ(all[0].frame, QRectF(0, 0, 640, 400));
    EXPECT_EQ(all[1].frame, QRectF(640, 0, 512, 320));
    EXPECT_EQ(all[2].frame, QRectF(0, 400, 427, 267)) << "whole points";
    EXPECT_EQ(all[3].frame, QRectF(640, 400, 320, 200));
    EXPECT_EQ(all[1].scale, 1.25);
    EXPECT_EQ(all[2].scale, 1.5);
    for (const Screen &screen : all) {
        EXPECT_EQ(screen.deviceFrame.size(), kQuarter.size());
        EXPECT_EQ(screen.visibleFrame, screen.frame);
    }
    scales.tell({});
    EXPECT_EQ(screens.all()[3].frame, QRectF(kLastQuarter)) << "nothing else is told of it";
}

TEST_F(MonitorLayoutsTest, aScreenKeepsItsIdentityInAnotherOrder) {
    arrange({{u"a"_s, kQuarter}, {u"b"_s, kRightQuarter}});
    ASSERT_TRUE(waitForScreens({{u"a"_s, kQuarter}, {u"b"_s, kRightQuarter}}));
    const auto before = screens.all();
    arrange({{u"b"_s, kRightQuarter}, {u"a"_s, kQuarter}});
    ASSERT_TRUE(waitForScreens({{u"b"_s, kRightQuarter}, {u"a"_s, kQuarter}}));
    EXPECT_EQ(screens.all()[0], before[1]);
    EXPECT_EQ(screens.all()[1], before[0]);
}

TEST_F(MonitorLayoutsTest, aDisplayThatTellsOfItselfIsKnownInEveryPlace) {
    setEdid(edidBlock("Panel 24", "SN-0042"));
    arrange({{u"a"_s, kQuarter}, {u"b"_s, kRightQuarter}});
    const QString panel = u"ACM Panel 24 SN-0042"_s;
    EXPECT_TRUE(waitForScreens({{panel, kQuarter}, {u"b"_s, kRightQuarter}}));
    arrange({{u"c"_s, kRightQuarter}, {u"b"_s, kQuarter}});
    EXPECT_TRUE(waitForScreens({{panel, kRightQuarter}, {u"b"_s, kQuarter}}));
}

TEST_F(MonitorLayoutsTest, theMainScreenIsThePrimaryOneOfNow) {
    arrange({{u"*a"_s, kQuarter}, {u"b"_s, kRightQuarter}});
    ASSERT_TRUE(waitForScreens({{u"a"_s, kQuarter}, {u"b"_s, kRightQuarter}}));
    arrange({{u"a"_s, kQuarter}, {u"*b"_s, kRightQuarter}});
    EXPECT_TRUE(waitForScreens({{u"b"_s, kRightQuarter}, {u"a"_s, kQuarter}}));
    EXPECT_EQ(screens.main()->persistentID, u"b"_s);
}

TEST_F(MonitorLayoutsTest, allScreensAreBackAsTheyWereAfterTheyWereGone) {
    const auto before = screens.all();
    for (int times = 0; times < 2; ++times) {
        xrandr({u"--output"_s, u"screen"_s, u"--off"_s});
        ASSERT_TRUE(waitUntil([&] { return screens.all().empty(); }));
        EXPECT_EQ(screens.main(), std::nullopt);
        xrandr({u"--output"_s, u"screen"_s, u"--auto"_s});
        EXPECT_TRUE(waitUntil([&] { return screens.all() == before; }));
    }
    EXPECT_EQ(calls, 4);
}

} // namespace zeph
