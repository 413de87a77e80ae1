// SPDX-License-Identifier: MIT
#include "KWinFixture.h"

#include "adapters/session/kwin/PlasmaInsets.h"
#include "support/ManualRunLoop.h"
#include "support/QtPrinters.h"

using namespace Qt::StringLiterals;

namespace zeph {

class PlasmaInsetsTest : public PlayedKWinTest {
protected:
    void openInsets() {
        kwin.appear();
        open();
        insets.emplace(ours.bus(), *script, loop);
        changes = insets->subscribe([this] { ++changeCount; });
    }

    bool waitForArea(const QString &output, const std::optional<QRectF> &area) {
        return eventually([&] { return insets->usableArea(output, frame) == area; }, 5000);
    }

    /// The output lies elsewhere, and the shell answers as before, since it does not know yet.
    void changeFrameUnheard(const QRectF &other) {
        frame = other;
        ASSERT_TRUE(waitForArea(u"eDP-1"_s, std::nullopt));
        ASSERT_TRUE(waitForArea(u"eDP-1"_s, QRectF(0, 0, 1280, 800)));
    }

    QRectF frame{0, 0, 1280, 800};
    ManualClock clock;
    ManualRunLoop loop{clock};
    std::optional<PlasmaInsets> insets;
    int changeCount = 0;
    Subscription changes;
};

TEST_F(PlasmaInsetsTest, mirrorsNeedOneSurface) {
    openInsets();
    EXPECT_TRUE(insets->mirrorsShareSurfaces());
    PlasmaInsets ofPictures(ours.bus(), *script, loop, [] { return true; });
    EXPECT_FALSE(ofPictures.mirrorsShareSurfaces()) << "Plasma may show either";
}

TEST_F(PlasmaInsetsTest, asksForAnOutputOnceItIsAskedForThat) {
    kwin.areas[u"eDP-1"_s] = {0, 0, 1280, 756};
    openInsets();
    EXPECT_EQ(insets->usableArea(u"eDP-1"_s, frame), std::nullopt);
    EXPECT_TRUE(waitForArea(u"eDP-1"_s, QRectF(0, 0, 1280, 756)));
    EXPECT_EQ(changeCount, 1);
    EXPECT_EQ(kwin.questions, 1);
}

TEST_F(PlasmaInsetsTest, asksAgainWhenAPanelMoved) {
    kwin.areas[u"eDP-1"_s] = {0, 0, 1280, 756};
    openInsets();
    ASSERT_TRUE(waitForArea(u"eDP-1"_s, QRectF(0, 0, 1280, 756)));
    kwin.areas[u"eDP-1"_s] = {0, 44, 1280, 756};
    kwin.tellPanels();
    EXPECT_TRUE(waitForArea(u"eDP-1"_s, QRectF(0, 44, 1280, 756)));
    EXPECT_EQ(changeCount, 2);
}

TEST_F(PlasmaInsetsTest, aPanelThatMovesAllTheTimeIsAskedForInTurn) {
    kwin.areas[u"eDP-1"_s] = {0, 0, 1280, 756};
    openInsets();
    ASSERT_TRUE(waitForArea(u"eDP-1"_s, QRectF(0, 0, 1280, 756)));
    kwin.areas[u"eDP-1"_s] = {0, 0, 1280, 700};
    for (int i = 0; i < 50; ++i) {
        kwin.tellPanels();
    }
    EXPECT_TRUE(waitForArea(u"eDP-1"_s, QRectF(0, 0, 1280, 700)));
    EXPECT_EQ(changeCount, 2);
}

TEST_F(PlasmaInsetsTest, anOutputThatTheShellDoesNotKnowHasNoArea) {
    openInsets();
    insets->usableArea(u"nowhere"_s, frame);
    ASSERT_TRUE(eventually([&] { return kwin.questions == 1; }));
    EXPECT_EQ(insets->usableArea(u"nowhere"_s, frame), std::nullopt);
    EXPECT_EQ(changeCount, 0);
}

TEST_F(PlasmaInsetsTest, anOutputThatChangedIsAskedForAgain) {
    kwin.areas[u"eDP-1"_s] = {0, 0, 1280, 800};
    openInsets();
    ASSERT_TRUE(waitForArea(u"eDP-1"_s, QRectF(0, 0, 1280, 800)));
    kwin.areas[u"eDP-1"_s] = {0, 0, 1920, 1080};
    frame = {0, 0, 1920, 1080};
    EXPECT_EQ(insets->usableArea(u"eDP-1"_s, frame), std::nullopt) << "of another size";
    EXPECT_TRUE(waitForArea(u"eDP-1"_s, QRectF(0, 0, 1920, 1080)));
    EXPECT_EQ(kwin.questions, 2);
}

TEST_F(PlasmaInsetsTest, aShellThatFollowsAChangeLateIsAskedOnceMore) {
    kwin.areas[u"eDP-1"_s] = {0, 0, 1280, 800};
    openInsets();
    ASSERT_TRUE(waitForArea(u"eDP-1"_s, QRectF(0, 0, 1280, 800)));
    changeFrameUnheard({0, 0, 1920, 1080});
    kwin.areas[u"eDP-1"_s] = {0, 0, 1920, 1080};
    loop.advance(2.1);
    EXPECT_TRUE(waitForArea(u"eDP-1"_s, QRectF(0, 0, 1920, 1080)));
    loop.advance(60);
    ASSERT_TRUE(waitForArea(u"eDP-1"_s, QRectF(0, 0, 1920, 1080)));
    EXPECT_EQ(kwin.questions, 3) << "and no more after that";
}

TEST_F(PlasmaInsetsTest, theLastOfSomeChangesIsWaitedFor) {
    kwin.areas[u"eDP-1"_s] = {0, 0, 1280, 800};
    openInsets();
    ASSERT_TRUE(waitForArea(u"eDP-1"_s, QRectF(0, 0, 1280, 800)));
    for (const QRectF &other : {QRectF(0, 0, 1024, 768), QRectF(0, 0, 1920, 1080)}) {
        changeFrameUnheard(other);
        loop.advance(1.9);
    }
    kwin.areas[u"DP-1"_s] = {0, 0, 640, 480};
    ASSERT_TRUE(waitForArea(u"DP-1"_s, QRectF(0, 0, 640, 480))) << "asked after what is due";
    EXPECT_EQ(kwin.questions, 4);
    kwin.areas[u"eDP-1"_s] = {0, 0, 1920, 1080};
    loop.advance(0.2);
    EXPECT_TRUE(waitForArea(u"eDP-1"_s, QRectF(0, 0, 1920, 1080)));
}

TEST_F(PlasmaInsetsTest, panelsGoWithTheShellAndComeBackWithIt) {
    kwin.areas[u"eDP-1"_s] = {0, 0, 1280, 756};
    openInsets();
    ASSERT_TRUE(waitForArea(u"eDP-1"_s, QRectF(0, 0, 1280, 756)));
    kwin.vanish();
    EXPECT_TRUE(waitForArea(u"eDP-1"_s, std::nullopt));
    EXPECT_EQ(changeCount, 2);
    kwin.appear();
    EXPECT_TRUE(waitForArea(u"eDP-1"_s, QRectF(0, 0, 1280, 756)));
}

} // namespace zeph
