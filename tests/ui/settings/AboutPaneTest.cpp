// SPDX-License-Identifier: MIT
#include "ui/settings/AboutPane.h"

#include "host/UpdateChecker.h"
#include "ui/controls/PillButton.h"
#include "ui/controls/StatusLine.h"
#include "ui/settings/PaneFixture.h"

using namespace Qt::StringLiterals;

namespace zeph::ui {

class AboutPaneTest : public PaneFixture {
protected:
    AboutPane &open(const QUrl &support = QUrl(u"mailto:help@example.org"_s)) {
        return show(new AboutPane(paneContext(), support));
    }

    PillButton &updateButton(const QString &text) { return named<PillButton>(text); }

    void tell(const UpdateStatus &status) {
        paneUpdates.tell(status);
        settle();
    }
};

TEST_F(AboutPaneTest, tellsTheVersionAndWhatBecomesOfTheData) {
    open();
    EXPECT_TRUE(says(u"Version %1"_s.arg(UpdateChecker::currentVersion())));
    EXPECT_TRUE(says(u"Private by design"_s));
    EXPECT_TRUE(says(
        u"Tavi turns your desktop into a calm mirror of your day: focus, movement, meetings, "
        u"weather, and the numbers you care about. Everything is computed on your computer and "
        u"stays on your computer: no accounts, no servers, no analytics. API keys you add live in "
        u"your keyring and talk to services directly."_s));
}

TEST_F(AboutPaneTest, looksForAnUpdateInstallsItAndCanStop) {
    open();
    EXPECT_TRUE(says(u"Check for a newer version and install it in place — no reinstall."_s));
    click(updateButton(u"Check for updates"_s));
    tell({UpdateStatus::Phase::checking});
    click(updateButton(u"Cancel"_s));
    tell({UpdateStatus::Phase::available, u"0.2.0"_s});
    EXPECT_TRUE(says(u"Version 0.2.0 is ready to install."_s));
    press(updateButton(u"Install"_s), Qt::Key_Space);
    EXPECT_EQ(paneUpdates.asked, (QStringList{u"check"_s, u"cancel"_s, u"install"_s}));
}

TEST_F(AboutPaneTest, tellsHowFarAnInstallationIs) {
    open();
    tell({UpdateStatus::Phase::installing, u"0.2.0"_s, {}, 40});
    EXPECT_TRUE(says(u"Installing version 0.2.0 · 40%"_s));
    tell({UpdateStatus::Phase::installing, u"0.2.0"_s, {}, 41});
    EXPECT_TRUE(says(u"Installing version 0.2.0 · 41%"_s));
}

TEST_F(AboutPaneTest, aFailureIsToldAsSuchAndCanBeTriedAgain) {
    open();
    tell({UpdateStatus::Phase::failed, {}, u"The network is down."_s});
    const auto *line = find<StatusLine>(u"The network is down."_s);
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->kind(), StatusLine::Kind::error);
    click(updateButton(u"Try again"_s));
    EXPECT_EQ(paneUpdates.asked, QStringList{u"check"_s});
    tell({UpdateStatus::Phase::upToDate});
    EXPECT_EQ(line->kind(), StatusLine::Kind::ok);
}

TEST_F(AboutPaneTest, aBuildThatNoPackageCanReplaceOffersNothing) {
    open();
    tell({UpdateStatus::Phase::notPackaged});
    EXPECT_FALSE(updateButton(u"Check for updates"_s).isEnabled());
}

TEST_F(AboutPaneTest, tellsHowTheWallpaperIsDrawnAndFollowsIt) {
    open();
    EXPECT_TRUE(says(u"How Tavi draws here"_s));
    EXPECT_TRUE(says(windowServer.drawingWay().reason));
    const QString next = u"Your window manager knows no desktop windows."_s;
    windowServer.setDrawingWay({DrawingMechanism::loweredOverride, next});
    settle();
    EXPECT_TRUE(says(next));
}

TEST_F(AboutPaneTest, opensThePageOfTheSupport) {
    AboutPane &pane = open();
    QStringList opened;
    pane.open = [&opened](const QUrl &page) { opened << page.toString(); };
    click(named<PillButton>(u"Contact us"_s));
    EXPECT_EQ(opened, QStringList{u"mailto:help@example.org"_s});
}

TEST_F(AboutPaneTest, withoutAnAddressNobodyIsSentAnywhere) {
    open(QUrl());
    EXPECT_FALSE(named<PillButton>(u"Contact us"_s).isEnabled());
    EXPECT_TRUE(says(u"This build was given no address to write to."_s));
}

} // namespace zeph::ui
