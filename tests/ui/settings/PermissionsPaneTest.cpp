// SPDX-License-Identifier: MIT
#include "ui/settings/PermissionsPane.h"

#include "ui/controls/IconButton.h"
#include "ui/controls/PillButton.h"
#include "ui/settings/PaneFixture.h"

using namespace Qt::StringLiterals;

namespace zeph::ui {

class PermissionsPaneTest : public PaneFixture {
protected:
    PermissionsPane &open() { return show(new PermissionsPane(paneContext())); }

    bool offers(const QString &name) const { return find<PillButton>(name) != nullptr; }
    bool canWithdraw(const QString &name) const {
        return find<IconButton>(u"Withdraw %1"_s.arg(name)) != nullptr;
    }
};

TEST_F(PermissionsPaneTest, offersWhatIsNotAllowedYet) {
    open();
    for (const QString &name : {u"Accessibility"_s, u"Location"_s, u"Calendar"_s, u"Reminders"_s}) {
        EXPECT_TRUE(says(name));
        EXPECT_TRUE(offers(u"Allow %1"_s.arg(name)));
        EXPECT_FALSE(canWithdraw(name));
    }
}

TEST_F(PermissionsPaneTest, givesAndTakesBackTheConsentToCountInput) {
    open();
    press(named<PillButton>(u"Allow Accessibility"_s), Qt::Key_Space);
    EXPECT_TRUE(consents.input.isGranted());
    EXPECT_TRUE(says(u"Allowed"_s));
    EXPECT_FALSE(offers(u"Allow Accessibility"_s));
    auto &withdraw = named<IconButton>(u"Withdraw Accessibility"_s);
    EXPECT_TRUE(withdraw.hasFocus()); // in place of the button that was pressed
    EXPECT_EQ(withdraw.toolTip(), u"Withdraw"_s);
    press(withdraw, Qt::Key_Space);
    EXPECT_FALSE(consents.input.isGranted());
    EXPECT_TRUE(named<PillButton>(u"Allow Accessibility"_s).hasFocus());
}

TEST_F(PermissionsPaneTest, saysWhereKeysCanNotBeCounted) {
    const QString note = u"Your desktop does not tell how often keys are pressed, so there is no "
                         u"typing rhythm here."_s;
    open();
    EXPECT_FALSE(says(note));
    input.countsKeys = false;
    open();
    EXPECT_TRUE(says(note));
}

TEST_F(PermissionsPaneTest, offersNoConsentOfWhichNothingWouldCome) {
    input.countsKeys = false;
    open();
    EXPECT_TRUE(says(u"Accessibility"_s));
    EXPECT_FALSE(offers(u"Allow Accessibility"_s));
    EXPECT_TRUE(offers(u"Allow Location"_s));
    consents.input.set(ConsentState::granted);
    permissions->refresh();
    settle();
    EXPECT_TRUE(canWithdraw(u"Accessibility"_s)) << "what was given can be taken back";
}

TEST_F(PermissionsPaneTest, asksForTheLocation) {
    open();
    click(named<PillButton>(u"Allow Location"_s));
    EXPECT_EQ(location.authorizationRequests, 1);
    systemLocation = LocationAuthorization::authorized;
    loop.advance(0.6); // the state is read again by then
    settle();
    EXPECT_TRUE(canWithdraw(u"Location"_s));
}

TEST_F(PermissionsPaneTest, asksForCalendarAndReminders) {
    open();
    click(named<PillButton>(u"Allow Calendar"_s));
    ASSERT_EQ(eventStore.requests.size(), 1U);
    EXPECT_EQ(eventStore.requests[0].type, EntityType::event);
    eventStore.access[EntityType::event] = EventAccess::fullAccess;
    eventStore.requests[0].completion(true);
    settle();
    EXPECT_TRUE(canWithdraw(u"Calendar"_s));
    click(named<PillButton>(u"Allow Reminders"_s));
    ASSERT_EQ(eventStore.requests.size(), 2U);
    EXPECT_EQ(eventStore.requests[1].type, EntityType::reminder);
}

TEST_F(PermissionsPaneTest, withdrawsEachConsent) {
    consents.location.set(ConsentState::granted);
    consents.calendar.set(ConsentState::granted);
    consents.reminders.set(ConsentState::granted);
    systemLocation = LocationAuthorization::authorized;
    eventStore.access[EntityType::event] = EventAccess::fullAccess;
    eventStore.access[EntityType::reminder] = EventAccess::fullAccess;
    permissions->refresh();
    open();
    click(named<IconButton>(u"Withdraw Location"_s));
    EXPECT_FALSE(consents.location.isGranted());
    EXPECT_TRUE(consents.calendar.isGranted());
    click(named<IconButton>(u"Withdraw Calendar"_s));
    EXPECT_FALSE(consents.calendar.isGranted());
    EXPECT_TRUE(consents.reminders.isGranted());
    click(named<IconButton>(u"Withdraw Reminders"_s));
    EXPECT_FALSE(consents.reminders.isGranted());
}

TEST_F(PermissionsPaneTest, tellsWhatHindersTheLocation) {
    systemLocation = LocationAuthorization::authorized;
    location.hindered = LocationHindrance::noAgent;
    permissions->refresh();
    open();
    EXPECT_TRUE(says(u"There is no location agent on this desktop, so the main city of your time "
                     u"zone stands in."_s));
    location.hindered = LocationHindrance::none;
    permissions->refresh();
    settle();
    EXPECT_FALSE(says(u"There is no location agent on this desktop, so the main city of your time "
                      u"zone stands in."_s));
}

TEST_F(PermissionsPaneTest, readsTheStatesAgainOnRequest) {
    open();
    eventStore.access[EntityType::event] = EventAccess::fullAccess;
    EXPECT_FALSE(canWithdraw(u"Calendar"_s));
    click(named<PillButton>(u"Refresh"_s));
    EXPECT_TRUE(canWithdraw(u"Calendar"_s));
}

TEST_F(PermissionsPaneTest, readsTheStatesAgainWhenTheUserComesBack) {
    PermissionsPane &pane = open();
    eventStore.access[EntityType::event] = EventAccess::fullAccess;
    QEvent activated(QEvent::WindowActivate);
    QApplication::sendEvent(&pane, &activated);
    settle();
    EXPECT_TRUE(canWithdraw(u"Calendar"_s));
    eventStore.access[EntityType::event] = EventAccess::notDetermined;
    pane.willShow();
    settle();
    EXPECT_FALSE(canWithdraw(u"Calendar"_s));
}

TEST_F(PermissionsPaneTest, opensTheDesktopsPageOfPrivacyWhereThereIsOne) {
    open();
    click(named<PillButton>(u"Open System Settings → Privacy"_s));
    EXPECT_EQ(systemSettings.opened, QStringList{PermissionsManager::privacyLink()});
}

TEST_F(PermissionsPaneTest, offersNoPageThatTheDesktopHasNot) {
    systemSettings.hasPages = false;
    open();
    EXPECT_FALSE(offers(u"Open System Settings → Privacy"_s));
    EXPECT_TRUE(offers(u"Refresh"_s));
}

} // namespace zeph::ui
