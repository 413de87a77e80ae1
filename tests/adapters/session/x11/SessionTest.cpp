// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11Session.h"

#include "X11Fixture.h"
#include "adapters/apps/DesktopEntries.h"
#include "adapters/loop/QtRunLoop.h"
#include "base/Background.h"
#include "settings/Consents.h"
#include "support/FakeUserDefaults.h"
#include "support/ManualTaskExecutor.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// What a session is opened with.
struct SessionTest : X11Test {
    explicit SessionTest(const XvfbSession::Options &options = {}) : X11Test(options) {}

    X11Session::Opened open(const QByteArray &display) {
        return X11Session::open({entries, consents.input}, display);
    }

    ManualTaskExecutor executor;
    QtRunLoop runLoop;
    Background background = Background::over(executor, runLoop);
    DesktopEntries entries{{}, u"en_US"_s, background};
    FakeUserDefaults defaults;
    Consents consents{defaults};
};

struct PoorSessionTest : SessionTest {
    PoorSessionTest() : SessionTest({.screen = "1280x800x8"}) {}
};

} // namespace

TEST_F(SessionTest, offersEverythingOfOneDisplay) {
    const X11Session::Opened opened = open(session.display());
    ASSERT_TRUE(opened.session);
    EXPECT_EQ(opened.refusal, QString());
    EXPECT_EQ(opened.session->screens().all().size(), 1U);
    EXPECT_EQ(opened.session->workspace().frontmostApplication(), std::nullopt);
    EXPECT_TRUE(opened.session->virtualDesktops().managedDisplays().empty());
    EXPECT_FALSE(opened.session->inputEvents().isTrusted());
    consents.input.set(ConsentState::granted);
    EXPECT_TRUE(opened.session->inputEvents().isTrusted());
    EXPECT_TRUE(opened.session->windowServer().makeDesktopSurface(wholeScreen(), false));
}

TEST_F(SessionTest, saysThatThereIsNoDisplay) {
    const X11Session::Opened opened = open(":999999");
    EXPECT_FALSE(opened.session);
    EXPECT_EQ(opened.refusal, u"there is no X display to draw on"_s);
}

TEST_F(PoorSessionTest, saysThatThePixelsCantBePainted) {
    const X11Session::Opened opened = open(session.display());
    EXPECT_FALSE(opened.session);
    EXPECT_EQ(opened.refusal, u"the X server keeps pixels in no form that can be painted"_s);
}

} // namespace zeph
