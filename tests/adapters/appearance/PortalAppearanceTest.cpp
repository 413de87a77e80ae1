// SPDX-License-Identifier: MIT
#include "adapters/appearance/PortalAppearance.h"

#include "adapters/appearance/FakeSettingsPortal.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

using Scheme = DesktopAppearance::Scheme;

const QString appearance = u"org.freedesktop.appearance"_s;
const QString interface = u"org.gnome.desktop.interface"_s;

class PortalAppearanceTest : public testing::Test {
protected:
    void listen() {
        look = std::make_unique<PortalAppearance>(client.bus());
        subscription = look->subscribe([this] { ++changes; });
    }
    bool becomes(Scheme scheme) {
        return eventually([&] { return look->scheme() == scheme; });
    }
    /// True once the portal's answer was worked off; what was sent before has arrived too.
    bool settles(int questions) {
        if (!eventually([&] { return portal.questions >= questions; })) {
            return false;
        }
        portal.change(appearance, u"color-scheme"_s, 2U);
        return becomes(Scheme::light);
    }
    bool looksLikeNothingKnown() const {
        return look->scheme() == Scheme::unknown && !look->wantsHighContrast() &&
               look->wantsMotion();
    }

    PrivateBus bus;
    FakeSettingsPortal portal{bus.address()};
    BusConnection client{bus.address()};
    std::unique_ptr<PortalAppearance> look;
    int changes = 0;
    Subscription subscription;
};

} // namespace

TEST_F(PortalAppearanceTest, isUnknownWithoutAPortal) {
    listen();
    EXPECT_FALSE(eventually([&] { return !looksLikeNothingKnown(); }, 100));
    EXPECT_EQ(changes, 0);
}

TEST_F(PortalAppearanceTest, isUnknownWithoutABus) {
    bus.stop();
    BusConnection nowhere(bus.address());
    PortalAppearance without(nowhere.bus());
    const Subscription listening = without.subscribe([] {});
    EXPECT_EQ(without.scheme(), Scheme::unknown);
    EXPECT_FALSE(without.wantsHighContrast());
    EXPECT_TRUE(without.wantsMotion());
}

TEST_F(PortalAppearanceTest, isWhatThePortalTells) {
    portal.groups[appearance] = {{u"color-scheme"_s, 1U}, {u"contrast"_s, 1U}};
    portal.groups[interface] = {{u"enable-animations"_s, false}};
    portal.appear();
    listen();
    ASSERT_TRUE(becomes(Scheme::dark));
    EXPECT_TRUE(look->wantsHighContrast());
    EXPECT_FALSE(look->wantsMotion());
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(portal.questions, 1);
    EXPECT_EQ(portal.asked, (QStringList{appearance, interface}));
}

TEST_F(PortalAppearanceTest, isFollowedLive) {
    portal.appear();
    listen();
    ASSERT_TRUE(eventually([&] { return portal.questions == 1; }));
    portal.change(appearance, u"color-scheme"_s, 1U);
    ASSERT_TRUE(becomes(Scheme::dark));
    portal.change(appearance, u"color-scheme"_s, 2U);
    ASSERT_TRUE(becomes(Scheme::light));
    portal.change(appearance, u"color-scheme"_s, 0U);
    ASSERT_TRUE(becomes(Scheme::unknown));
    portal.change(appearance, u"contrast"_s, 1U);
    ASSERT_TRUE(eventually([&] { return look->wantsHighContrast(); }));
    portal.change(appearance, u"contrast"_s, 0U);
    ASSERT_TRUE(eventually([&] { return !look->wantsHighContrast(); }));
    EXPECT_EQ(portal.questions, 1) << "a signal tells all";
    EXPECT_EQ(changes, 5);
}

TEST_F(PortalAppearanceTest, hasNoMotionWhenEitherSettingSaysSo) {
    portal.appear();
    listen();
    ASSERT_TRUE(eventually([&] { return portal.questions == 1; }));
    portal.change(appearance, u"reduced-motion"_s, 1U);
    ASSERT_TRUE(eventually([&] { return !look->wantsMotion(); }));
    portal.change(appearance, u"reduced-motion"_s, 0U);
    ASSERT_TRUE(eventually([&] { return look->wantsMotion(); }));
    portal.change(interface, u"enable-animations"_s, false);
    ASSERT_TRUE(eventually([&] { return !look->wantsMotion(); }));
}

TEST_F(PortalAppearanceTest, tellsOnlyOfWhatIsDifferent) {
    portal.groups[appearance] = {{u"color-scheme"_s, 1U}};
    portal.appear();
    listen();
    ASSERT_TRUE(becomes(Scheme::dark));
    portal.change(appearance, u"color-scheme"_s, 1U);
    portal.change(appearance, u"accent-color"_s, u"blue"_s);
    portal.change(interface, u"color-scheme"_s, 2U);
    ASSERT_TRUE(settles(1));
    EXPECT_EQ(changes, 2);
}

TEST_F(PortalAppearanceTest, isUnknownForValuesThatMeanNothing) {
    portal.groups[appearance] = {{u"color-scheme"_s, 7U}, {u"contrast"_s, u"1"_s}};
    portal.groups[interface] = {{u"enable-animations"_s, 0U}};
    portal.appear();
    listen();
    ASSERT_TRUE(settles(1));
    EXPECT_FALSE(look->wantsHighContrast());
    EXPECT_TRUE(look->wantsMotion());
    EXPECT_EQ(changes, 1) << "that of settling alone";
}

TEST_F(PortalAppearanceTest, isUnknownOfAPortalWithoutSettings) {
    portal.knowsSettings = false;
    portal.appear();
    listen();
    ASSERT_TRUE(eventually([&] { return portal.questions == 1; }));
    EXPECT_TRUE(looksLikeNothingKnown());
}

TEST_F(PortalAppearanceTest, isUnknownOnceThePortalIsGoneAndReadAnewWhenItIsBack) {
    portal.groups[appearance] = {{u"color-scheme"_s, 1U}};
    portal.appear();
    listen();
    ASSERT_TRUE(becomes(Scheme::dark));
    portal.vanish();
    ASSERT_TRUE(becomes(Scheme::unknown));
    portal.appear();
    EXPECT_TRUE(becomes(Scheme::dark));
}

TEST_F(PortalAppearanceTest, waitsForNoPortalThatIsMute) {
    portal.groups[appearance] = {{u"color-scheme"_s, 1U}};
    portal.isMute = true;
    portal.appear();
    listen();
    ASSERT_TRUE(eventually([&] { return portal.questions == 1; }));
    EXPECT_TRUE(looksLikeNothingKnown());
    portal.answerLate();
    EXPECT_TRUE(becomes(Scheme::dark));
}

TEST_F(PortalAppearanceTest, mayEndWhileThePortalIsAsked) {
    portal.isMute = true;
    portal.appear();
    listen();
    ASSERT_TRUE(eventually([&] { return portal.questions == 1; }));
    look.reset();
    portal.answerLate();
    EXPECT_FALSE(eventually([&] { return changes > 0; }, 100));
}

} // namespace zeph
