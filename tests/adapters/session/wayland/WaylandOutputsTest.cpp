// SPDX-License-Identifier: MIT
#include "adapters/session/wayland/WaylandOutputs.h"

#include "FakeCompositor.h"
#include "FakePanels.h"
#include "WaylandClient.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

FakeOutput second(QPoint position = {400, 0}) {
    return {.name = "DP-2",
            .model = "P24",
            .description = "Acme P24 7 (DP-2)",
            .mode = {600, 200},
            .position = position,
            .points = {600, 200}};
}

/// The outputs of a compositor, and how often they told of a change.
struct Followed {
    explicit Followed(FakeCompositor &compositor)
        : connection(WaylandConnection::open(compositor.socket()).connection),
          outputs(*connection, {.integers = true, .fractions = true},
                  QStringLiteral("/nonexistent")),
          subscription(outputs.subscribe([this] { ++changes; })) {}

    std::unique_ptr<WaylandConnection> connection;
    WaylandOutputs outputs;
    int changes = 0;
    Subscription subscription;
};

} // namespace

TEST(WaylandOutputs, areKnownAtOnceInEveryVersionOfTheProtocol) {
    for (const std::uint32_t version : {1U, 2U, 3U, 4U}) {
        for (const std::uint32_t exact : {0U, 1U, 2U, 3U}) {
            FakeCompositor compositor(
                {.outputVersion = version, .exactVersion = exact, .outputs = {FakeOutput()}});
            const Followed followed(compositor);
            const auto screens = followed.outputs.all();
            ASSERT_EQ(screens.size(), 1U) << version << ' ' << exact;
            EXPECT_EQ(screens[0].frame, QRectF(0, 0, 400, 300)) << version << ' ' << exact;
            if (version >= 4 || exact >= 2) {
                EXPECT_EQ(screens[0].persistentID, u"Acme P27 XY12"_s);
                EXPECT_EQ(screens[0].displayID, connectorNumber(u"DP-1"_s));
            } else {
                EXPECT_EQ(screens[0].persistentID, u"Acme P27 @output-1"_s);
            }
        }
    }
}

TEST(WaylandOutputs, areIdentifiedByTheNameThatTheCompositorGives) {
    FakeOutput dark = second();
    dark.mode = {};
    dark.points = {};
    dark.name = "DP-3";
    dark.description = "Acme P24 8 (DP-3)";
    FakeCompositor compositor({.outputs = {second(), FakeOutput(), dark}});
    const Followed followed(compositor);
    const auto screens = followed.outputs.all();
    ASSERT_EQ(screens.size(), 2U);
    EXPECT_EQ(followed.outputs.identityOf(u"DP-1"_s), screens[0].persistentID);
    EXPECT_EQ(followed.outputs.identityOf(u"DP-2"_s), screens[1].persistentID);
    EXPECT_NE(screens[0].persistentID, screens[1].persistentID);
    EXPECT_EQ(followed.outputs.identityOf(u"DP-3"_s), QString()) << "it shows nothing";
    EXPECT_EQ(followed.outputs.identityOf(u"HDMI-A-1"_s), QString());
}

TEST(WaylandOutputs, beginWithTheOneAtTheOrigin) {
    FakeCompositor compositor({.outputs = {second(), FakeOutput()}});
    const Followed followed(compositor);
    ASSERT_EQ(followed.outputs.all().size(), 2U);
    EXPECT_EQ(followed.outputs.main()->name, u"P27"_s);
    EXPECT_EQ(followed.outputs.all()[1].name, u"P24"_s);
}

TEST(WaylandOutputs, haveTheFirstForTheMainOneWhereNoneIsAtTheOrigin) {
    FakeOutput first;
    first.position = {10, 10};
    FakeCompositor compositor({.outputs = {first, second()}});
    const Followed followed(compositor);
    EXPECT_EQ(followed.outputs.main()->name, u"P27"_s);
}

TEST(WaylandOutputs, areInTheOrderOfTheUserWhereTheCompositorHasOne) {
    FakeOutput untold = second({1000, 0});
    untold.name = "DP-3";
    FakeCompositor compositor({.hasOrder = true, .outputs = {untold, FakeOutput(), second()}});
    compositor.order({"DP-2", "DP-1"});
    Followed followed(compositor);
    const auto connectors = [&followed] {
        std::vector<QString> names;
        for (const Screen &screen : followed.outputs.all()) {
            names.push_back(screen.connector);
        }
        return names;
    };
    EXPECT_EQ(connectors(), (std::vector{u"DP-2"_s, u"DP-1"_s, u"DP-3"_s})) << "known at once";
    EXPECT_EQ(followed.outputs.main()->connector, u"DP-2"_s) << "though it is not at the origin";
    compositor.order({"DP-1", "DP-2", "DP-3"});
    ASSERT_TRUE(waitUntil([&] { return followed.changes > 0; }));
    EXPECT_EQ(connectors(), (std::vector{u"DP-1"_s, u"DP-2"_s, u"DP-3"_s}));
    EXPECT_EQ(followed.changes, 1);
    compositor.order({"DP-3"});
    ASSERT_TRUE(waitUntil([&] { return followed.changes > 1; }));
    EXPECT_EQ(connectors(), (std::vector{u"DP-3"_s, u"DP-1"_s, u"DP-2"_s}))
        << "those that are not told as without an order";
}

TEST(WaylandOutputs, ofWhichMirrorsAreOneScreenAreInTheOrderOfTheirFirst) {
    FakeOutput mirror;
    mirror.name = "DP-3";
    FakeCompositor compositor({.hasOrder = true, .outputs = {FakeOutput(), mirror, second()}});
    compositor.order({"DP-3", "DP-2", "DP-1"});
    Followed followed(compositor);
    FakePanels panels;
    panels.areMirrorsOneScene = true;
    followed.outputs.follow(&panels);
    ASSERT_EQ(followed.outputs.all().size(), 2U);
    EXPECT_EQ(followed.outputs.main()->connector, u"DP-1"_s) << "the one that is kept";
    EXPECT_EQ(followed.outputs.all()[1].connector, u"DP-2"_s);
}

TEST(WaylandOutputs, thatMirrorEachOtherAreOneScreenWhereOneSurfaceIsOnBoth) {
    FakeOutput mirror;
    mirror.name = "DP-3";
    mirror.description = "Acme P24 8 (DP-3)";
    FakeCompositor compositor({.outputs = {FakeOutput(), mirror, second()}});
    Followed followed(compositor);
    EXPECT_EQ(followed.outputs.all().size(), 3U) << "each needs a surface of its own";
    FakePanels panels;
    panels.areMirrorsOneScene = true;
    followed.outputs.follow(&panels);
    const auto screens = followed.outputs.all();
    ASSERT_EQ(screens.size(), 2U);
    EXPECT_EQ(screens[0].connector, u"DP-1"_s);
    EXPECT_EQ(screens[1].connector, u"DP-2"_s);
    followed.outputs.follow(nullptr);
    EXPECT_EQ(followed.outputs.all().size(), 3U);
}

TEST(WaylandOutputs, canBeNone) {
    FakeCompositor compositor({.outputs = {}});
    Followed followed(compositor);
    EXPECT_TRUE(followed.outputs.all().empty());
    EXPECT_EQ(followed.outputs.main(), std::nullopt);
    compositor.addOutput(FakeOutput());
    ASSERT_TRUE(waitUntil([&] { return followed.changes > 0; }));
    EXPECT_EQ(followed.outputs.all().size(), 1U);
    compositor.removeOutput("DP-1");
    ASSERT_TRUE(waitUntil([&] { return followed.changes > 1; }));
    EXPECT_TRUE(followed.outputs.all().empty());
}

TEST(WaylandOutputs, withoutAModeAreNoScreensUntilTheyHaveOne) {
    FakeOutput blank;
    blank.mode = {};
    FakeCompositor compositor({.outputs = {blank}});
    Followed followed(compositor);
    EXPECT_TRUE(followed.outputs.all().empty());
    compositor.changeOutput(FakeOutput());
    ASSERT_TRUE(waitUntil([&] { return followed.changes > 0; }));
    EXPECT_EQ(followed.outputs.all().size(), 1U);
}

TEST(WaylandOutputs, tellOnceWhatChangesTogether) {
    FakeCompositor compositor({.outputs = {FakeOutput(), second()}});
    Followed followed(compositor);
    FakeOutput changed;
    changed.mode = {800, 600};
    changed.scale = 2;
    compositor.thread().run([&](wl_display *) {
        compositor.changeOutput(changed);
        compositor.removeOutput("DP-2");
    });
    ASSERT_TRUE(waitUntil([&] { return followed.changes > 0; }));
    ASSERT_EQ(followed.outputs.all().size(), 1U);
    EXPECT_EQ(followed.outputs.all()[0].scale, 2);
    EXPECT_EQ(followed.changes, 1);
    const int changes = followed.changes;
    compositor.changeOutput(changed); // the same once more
    followed.connection->waitForAnswers();
    QCoreApplication::processEvents();
    EXPECT_EQ(followed.changes, changes);
}

TEST(WaylandOutputs, tellOfAPlaceThatIsAnotherOneThoughTheScreenIsTheSame) {
    FakeCompositor compositor;
    Followed followed(compositor);
    const Screen screen = followed.outputs.all()[0];
    const auto before = followed.outputs.placeOf(screen);
    ASSERT_TRUE(before);
    int places = 0;
    const Subscription subscription = followed.outputs.subscribeToPlaces([&] { ++places; });
    compositor.removeOutput("DP-1");
    compositor.addOutput(FakeOutput());
    EXPECT_TRUE(waitUntil([&] {
        const auto place = followed.outputs.placeOf(screen);
        return place && place->number != before->number;
    }));
    EXPECT_GT(places, 0);
}

TEST(WaylandOutputs, haveNoPlaceForAScreenThatIsGone) {
    FakeCompositor compositor({.outputs = {FakeOutput(), second()}});
    Followed followed(compositor);
    const Screen gone = followed.outputs.all()[1];
    std::vector<bool> found;
    const Subscription early =
        followed.connection->subscribeToGlobals([&] { // before the screens are counted anew
            found.push_back(followed.outputs.placeOf(gone).has_value());
        });
    compositor.removeOutput("DP-2");
    ASSERT_TRUE(waitUntil([&] { return !found.empty(); }));
    EXPECT_FALSE(found[0]);
    ASSERT_TRUE(waitUntil([&] { return followed.changes > 0; }));
    EXPECT_FALSE(followed.outputs.placeOf(gone));
    EXPECT_TRUE(followed.outputs.placeOf(followed.outputs.all()[0]));
}

TEST(WaylandOutputs, endQuietlyWithTheCompositor) {
    FakeCompositor compositor;
    Followed followed(compositor);
    compositor.thread().end();
    int losses = 0;
    const Subscription loss = followed.connection->subscribeToLoss([&] { ++losses; });
    EXPECT_TRUE(waitUntil([&] { return losses == 1; }));
    EXPECT_EQ(followed.outputs.all().size(), 1U);
}

} // namespace zeph
