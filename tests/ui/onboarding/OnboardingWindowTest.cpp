// SPDX-License-Identifier: MIT
#include "ui/onboarding/OnboardingWindow.h"

#include "host/PermissionWords.h"
#include "ui/controls/PillButton.h"
#include "ui/onboarding/BackgroundChoice.h"
#include "ui/onboarding/OnboardingFixture.h"
#include "ui/settings/WallpaperThumbnail.h"

#include <QAccessible>
#include <QProgressBar>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

#include <gmock/gmock.h>

namespace zeph {

using namespace Qt::StringLiterals;
using testing::Contains;
using testing::ElementsAre;
using testing::IsSupersetOf;
using testing::Not;

namespace {

class OnboardingWindowTest : public OnboardingFixture {
protected:
    ui::BackgroundChoice *choice(const QString &name) const {
        return dynamic_cast<ui::BackgroundChoice *>(button(name));
    }

    const QProgressBar *marks() const { return window->findChild<QProgressBar *>(); }
};

} // namespace

TEST_F(OnboardingWindowTest, isTitledClosableAndOfOneSizeInTheMiddleOfItsScreen) {
    open();
    EXPECT_EQ(window->windowTitle(), u"Welcome to Tavi"_s);
    EXPECT_EQ(window->minimumSize(), window->maximumSize());
    const QRect room = window->screen()->availableGeometry();
    EXPECT_EQ(window->size(), QSize(470, 580).boundedTo(room.size() - QSize(16, 48)));
    const QRect place(window->pos(), window->size());
    EXPECT_LE((place.center() - room.center()).manhattanLength(), 2);
    EXPECT_TRUE(window->windowFlags() & Qt::WindowCloseButtonHint);
    EXPECT_FALSE(window->windowFlags() & (Qt::WindowMinMaxButtonsHint | Qt::WindowStaysOnTopHint));
}

TEST_F(OnboardingWindowTest, welcomesWithoutAWayBack) {
    open();
    EXPECT_THAT(
        words(),
        ElementsAre(
            u"Welcome to Tavi"_s,
            u"Tavi turns your wallpaper into a calm, living mirror of your day — your time, "
            "focus, weather, and machine. It reads everything privately, on your computer. "
            "Nothing ever leaves it."_s,
            u"Next, we'll ask for a few permissions — one at a time. Each is optional."_s,
            u"Continue"_s));
    EXPECT_EQ(button(u"Back"_s), nullptr);
}

TEST_F(OnboardingWindowTest, asksForTheRhythmInItsOwnWords) {
    openAt(OnboardingStep::input);
    EXPECT_THAT(
        words(),
        IsSupersetOf(
            {u"Back"_s, u"Continue"_s, u"Typing & mouse rhythm"_s,
             u"to measure your typing rhythm and mouse activity. It never sees what you type, "
             "only timing."_s,
             u"Allow"_s, u"Open System Settings instead"_s,
             u"Optional — skip with Continue. Tavi works without it; only this stat stays "
             "hidden."_s}));
    EXPECT_THAT(words(), Not(Contains(u"Allowed"_s)));
}

TEST_F(OnboardingWindowTest, asksForThePlaceInItsOwnWords) {
    openAt(OnboardingStep::location);
    EXPECT_THAT(words(), IsSupersetOf({u"Weather & sunrise"_s,
                                       u"for your local weather and accurate sunrise and sunset."_s,
                                       u"Allow"_s}));
    EXPECT_EQ(button(u"Open System Settings instead"_s), nullptr);
}

TEST_F(OnboardingWindowTest, tellsOfIntegrationsAndOfWhereThingsAre) {
    openAt(OnboardingStep::integrations);
    EXPECT_THAT(
        words(),
        IsSupersetOf({u"Bring in your numbers"_s, u"Revenue"_s,
                      u"Stripe, ChartMogul, Lemon Squeezy, Dodo, Polar, Gumroad, TrustMRR"_s,
                      u"Developer"_s, u"GitHub, RSS feeds, any JSON API"_s, u"Audience & markets"_s,
                      u"Reddit, Bluesky, Product Hunt, Hacker News, crypto, FX"_s,
                      u"Add them anytime in Settings → Integrations."_s}));
    click(u"Continue"_s);
    EXPECT_THAT(words(),
                IsSupersetOf({u"Make it yours"_s,
                              u"Show or hide any widget — you choose what's on your wallpaper."_s,
                              u"Resize widgets to small, medium, or large."_s,
                              u"Auto-layout that fits your screen, or reorder it yourself."_s,
                              u"Pick your own background color, or let it follow the day."_s}));
    click(u"Continue"_s);
    EXPECT_THAT(
        words(),
        IsSupersetOf({u"You're all set"_s, u"Find Tavi in your tray for Settings and updates."_s,
                      u"Open Settings to connect integrations and choose what shows."_s,
                      u"Your wallpaper updates itself quietly all day."_s}));
}

TEST_F(OnboardingWindowTest, theLastStepStartsInsteadOfContinuingAndEndsOnce) {
    openAt(OnboardingStep::finish);
    EXPECT_EQ(button(u"Continue"_s), nullptr);
    EXPECT_NE(button(u"Back"_s), nullptr);
    QAbstractButton *start = button(u"Start using Tavi"_s);
    ASSERT_NE(start, nullptr);
    QTest::mouseClick(start, Qt::LeftButton);
    QTest::mouseClick(start, Qt::LeftButton);
    settle();
    EXPECT_EQ(ends, 1);
}

TEST_F(OnboardingWindowTest, mayBeEndedByWhoHearsOfTheEnd) {
    window = std::make_unique<ui::OnboardingWindow>(context(), [this] {
        ++ends;
        window.reset();
    });
    present();
    while (window->step() != OnboardingStep::finish) {
        click(u"Continue"_s);
    }
    click(u"Start using Tavi"_s);
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(window, nullptr);
    loop.advance(3);
}

TEST_F(OnboardingWindowTest, goesBackAndForthByItsFooter) {
    openAt(OnboardingStep::location);
    click(u"Back"_s);
    EXPECT_EQ(window->step(), OnboardingStep::input);
    click(u"Back"_s);
    EXPECT_EQ(window->step(), OnboardingStep::welcome);
    EXPECT_EQ(button(u"Back"_s), nullptr);
    click(u"Continue"_s);
    EXPECT_EQ(window->step(), OnboardingStep::input);
}

TEST_F(OnboardingWindowTest, marksTheStep) {
    open();
    EXPECT_EQ(marks()->accessibleName(), u"Step 1 of 6"_s);
    click(u"Continue"_s);
    EXPECT_EQ(marks()->accessibleName(), u"Step 2 of 6"_s);
    EXPECT_EQ(marks()->value(), 2);
}

TEST_F(OnboardingWindowTest, allowingTheRhythmShowsAtOnce) {
    openAt(OnboardingStep::input);
    click(u"Allow"_s);
    EXPECT_TRUE(consents.input.isGranted());
    EXPECT_EQ(button(u"Allow"_s), nullptr);
    EXPECT_EQ(button(u"Open System Settings instead"_s), nullptr);
    EXPECT_THAT(words(), Contains(u"Allowed"_s));
    EXPECT_THAT(words(),
                Contains(u"Optional — skip with Continue. Tavi works without it; only this stat "
                         "stays hidden."_s));
    EXPECT_TRUE(systemSettings.opened.isEmpty());
}

TEST_F(OnboardingWindowTest, doesNotAskForTheRhythmWhereNothingWouldComeOfIt) {
    const QString why = u"Your desktop does not tell how often keys are pressed, so there is no "
                        u"typing rhythm here."_s;
    input.countsKeys = false;
    openAt(OnboardingStep::input);
    EXPECT_EQ(button(u"Allow"_s), nullptr);
    EXPECT_EQ(button(u"Open System Settings instead"_s), nullptr);
    EXPECT_THAT(words(), Contains(why));
    click(u"Continue"_s);
    EXPECT_NE(button(u"Allow"_s), nullptr) << "the place";
    EXPECT_THAT(words(), Not(Contains(why)));
}

TEST_F(OnboardingWindowTest, tellsBeforeTheConsentThatItIsForTheAppInFrontAlone) {
    const QString what = inputState(false, false, true).note;
    input.countsKeys = false;
    input.tellsFront = true;
    openAt(OnboardingStep::input);
    ASSERT_NE(button(u"Allow"_s), nullptr);
    EXPECT_EQ(words().count(what), 1);
    EXPECT_TRUE(button(u"Allow"_s)->accessibleDescription().endsWith(what));
    const auto *page = window->findChild<QScrollArea *>();
    EXPECT_EQ(page->verticalScrollBar()->maximum(), 0) << "all of it is in view";
    click(u"Allow"_s);
    EXPECT_EQ(words().count(what), 1);
    EXPECT_THAT(words(), Contains(u"Allowed"_s));
    click(u"Continue"_s);
    EXPECT_THAT(words(), Not(Contains(what)));
}

TEST_F(OnboardingWindowTest, theOtherWayOpensTheDesktopsPage) {
    openAt(OnboardingStep::input);
    click(u"Open System Settings instead"_s);
    EXPECT_EQ(systemSettings.opened, QStringList{PermissionsManager::accessibilityLink()});
    EXPECT_FALSE(consents.input.isGranted());
}

TEST_F(OnboardingWindowTest, aDesktopWithoutSuchAPageOffersNone) {
    systemSettings.hasPages = false;
    openAt(OnboardingStep::input);
    EXPECT_EQ(button(u"Open System Settings instead"_s), nullptr);
}

TEST_F(OnboardingWindowTest, allowingThePlaceAsksAndOpensItsPage) {
    openAt(OnboardingStep::location);
    click(u"Allow"_s);
    EXPECT_EQ(location.authorizationRequests, 1);
    EXPECT_EQ(systemSettings.opened, QStringList{PermissionsManager::locationLink()});
}

TEST_F(OnboardingWindowTest, whatIsGrantedElsewhereShowsAtTheNextLook) {
    openAt(OnboardingStep::location);
    systemLocation = LocationAuthorization::authorized;
    settle();
    EXPECT_NE(button(u"Allow"_s), nullptr);
    loop.advance(1.0);
    EXPECT_EQ(button(u"Allow"_s), nullptr);
    EXPECT_THAT(words(), Contains(u"Allowed"_s));
    systemLocation = LocationAuthorization::denied;
    loop.advance(1.0);
    EXPECT_NE(button(u"Allow"_s), nullptr) << "it may be withdrawn as well";
}

TEST_F(OnboardingWindowTest, looksAtTheStatesWhenItComesUp) {
    systemLocation = LocationAuthorization::authorized;
    open();
    EXPECT_TRUE(*permissions->locationGranted);
}

TEST_F(OnboardingWindowTest, looksEverySecondAndOnlyWhileItIsShown) {
    open();
    const int before = eventStore.statusCalls;
    loop.advance(3.5);
    const int looks = eventStore.statusCalls - before;
    EXPECT_EQ(looks, 3 * 2) << "two entities a look";
    window->close();
    settle();
    EXPECT_EQ(loop.timerCount(), 0U);
    const int after = eventStore.statusCalls;
    loop.advance(5);
    EXPECT_EQ(eventStore.statusCalls, after);
}

TEST_F(OnboardingWindowTest, allowIsWhatToDoUntilItIsDone) {
    using Kind = ui::PillButton::Kind;
    const auto kind = [this](const QString &text) {
        return dynamic_cast<ui::PillButton *>(button(text))->kind();
    };
    open();
    EXPECT_EQ(kind(u"Continue"_s), Kind::primary);
    click(u"Continue"_s);
    EXPECT_EQ(kind(u"Allow"_s), Kind::primary);
    EXPECT_EQ(kind(u"Continue"_s), Kind::secondary);
    click(u"Allow"_s);
    EXPECT_EQ(kind(u"Continue"_s), Kind::primary);
}

TEST_F(OnboardingWindowTest, closedAndShownAgainItStandsWhereItStoodAndIsNotDone) {
    openAt(OnboardingStep::integrations);
    window->close();
    settle();
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(closings, 1);
    EXPECT_EQ(ends, 0);
    present();
    EXPECT_EQ(window->step(), OnboardingStep::integrations);
    EXPECT_NE(button(u"Back"_s), nullptr);
    EXPECT_EQ(loop.timerCount(), 1U);
}

TEST_F(OnboardingWindowTest, aNewWindowBeginsAnew) {
    openAt(OnboardingStep::finish);
    window.reset();
    open();
    EXPECT_EQ(window->step(), OnboardingStep::welcome);
}

TEST_F(OnboardingWindowTest, isWalkedThroughByEnterAlone) {
    open();
    for (int step = 0; step < OnboardingFlow::stepCount; ++step) {
        EXPECT_EQ(static_cast<int>(window->step()), step);
        press(Qt::Key_Return);
        QTest::qWait(0);
        settle();
    }
    EXPECT_EQ(ends, 1);
    EXPECT_FALSE(consents.input.isGranted()) << "going on allows nothing";
}

TEST_F(OnboardingWindowTest, enterPressesWhatHasTheFocus) {
    openAt(OnboardingStep::input);
    button(u"Allow"_s)->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Return);
    EXPECT_TRUE(consents.input.isGranted());
    EXPECT_EQ(window->step(), OnboardingStep::input);
    EXPECT_EQ(window->focusWidget(), button(u"Continue"_s)) << "the button is gone";
}

TEST_F(OnboardingWindowTest, tabGoesFromThePageToTheFooterAndAroundWithoutATrap) {
    openAt(OnboardingStep::input);
    button(u"Allow"_s)->setFocus(Qt::TabFocusReason);
    QStringList order;
    for (int stop = 0; stop < 4; ++stop) {
        const auto *focused = dynamic_cast<QAbstractButton *>(window->focusWidget());
        ASSERT_NE(focused, nullptr);
        order << focused->text();
        press(Qt::Key_Tab);
    }
    EXPECT_THAT(order, ElementsAre(u"Allow"_s, u"Open System Settings instead"_s, u"Back"_s,
                                   u"Continue"_s));
    EXPECT_EQ(window->focusWidget(), button(u"Allow"_s));
}

TEST_F(OnboardingWindowTest, altAndTheArrowGoBackAndControlWCloses) {
    openAt(OnboardingStep::location);
    press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(window->step(), OnboardingStep::input);
    press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(closings, 1);
}

TEST_F(OnboardingWindowTest, aPictureOfTheWallpaperIsChosenByItsBackground) {
    preferences.setBackgroundMode(BackgroundMode::solid);
    openAt(OnboardingStep::customizing);
    EXPECT_TRUE(choice(u"Solid"_s)->isChecked());
    click(u"Time of day"_s);
    EXPECT_EQ(preferences.backgroundMode(), BackgroundMode::automatic);
    click(u"Transparent"_s);
    EXPECT_EQ(preferences.backgroundMode(), BackgroundMode::transparent);
    EXPECT_FALSE(choice(u"Solid"_s)->isChecked());
}

TEST_F(OnboardingWindowTest, backgroundsAreChosenByArrowsInOneStopOfTheTabKey) {
    preferences.setBackgroundMode(BackgroundMode::solid);
    openAt(OnboardingStep::customizing);
    choice(u"Solid"_s)->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Right);
    EXPECT_EQ(preferences.backgroundMode(), BackgroundMode::automatic);
    EXPECT_EQ(window->focusWidget(), choice(u"Time of day"_s));
    press(Qt::Key_Tab);
    EXPECT_EQ(window->focusWidget(), button(u"Back"_s));
}

TEST_F(OnboardingWindowTest, aBackgroundChosenElsewhereIsMarkedAndNotStoredAgain) {
    preferences.setBackgroundMode(BackgroundMode::solid);
    openAt(OnboardingStep::customizing);
    preferences.setBackgroundMode(BackgroundMode::automatic);
    const int writes = defaults.writes;
    settle();
    EXPECT_TRUE(choice(u"Time of day"_s)->isChecked());
    EXPECT_EQ(defaults.writes, writes);
}

TEST_F(OnboardingWindowTest, openingThePicturesStoresNothing) {
    preferences.setBackgroundMode(BackgroundMode::transparent);
    const int writes = defaults.writes;
    openAt(OnboardingStep::customizing);
    EXPECT_TRUE(choice(u"Transparent"_s)->isChecked());
    EXPECT_EQ(defaults.writes, writes);
}

TEST_F(OnboardingWindowTest, anotherContrastKeepsTheStep) {
    openAt(OnboardingStep::location);
    appearance.highContrast = true;
    appearance.changes.send();
    settle();
    EXPECT_EQ(window->step(), OnboardingStep::location);
    EXPECT_NE(button(u"Allow"_s), nullptr);
    EXPECT_EQ(loop.timerCount(), 1U);
}

TEST_F(OnboardingWindowTest, withMotionThePageIsThereAtTheEndOfIt) {
    appearance.motion = true;
    open();
    click(u"Continue"_s);
    EXPECT_EQ(window->step(), OnboardingStep::input);
    EXPECT_NE(button(u"Allow"_s), nullptr);
    click(u"Continue"_s); // while the other is still under way
    EXPECT_THAT(words(), Contains(u"Weather & sunrise"_s));
}

TEST_F(OnboardingWindowTest, whatEachButtonSaysAndDoesIsTold) {
    openAt(OnboardingStep::input);
    for (const QAbstractButton *found : window->findChildren<QAbstractButton *>()) {
        if (!found->isVisible()) {
            continue;
        }
        QAccessibleInterface *told =
            QAccessible::queryAccessibleInterface(const_cast<QAbstractButton *>(found));
        ASSERT_NE(told, nullptr);
        EXPECT_EQ(told->role(), QAccessible::Button);
        EXPECT_EQ(told->text(QAccessible::Name), found->text());
    }
}

} // namespace zeph
