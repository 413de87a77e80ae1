// SPDX-License-Identifier: MIT
#include "host/OnboardingFlow.h"

#include "host/CalendarPermission.h"
#include "host/PermissionWords.h"
#include "host/PermissionsManager.h"
#include "settings/Consents.h"
#include "support/FakeEventStore.h"
#include "support/FakeInputEvents.h"
#include "support/FakeLocation.h"
#include "support/FakeSystemSettings.h"
#include "support/FakeUserDefaults.h"
#include "support/ManualRunLoop.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

class OnboardingFlowTest : public testing::Test {
protected:
    OnboardingFlowTest() {
        input.trusted = false;
        permissions->refresh();
    }

    void goTo(OnboardingStep step) {
        while (flow.step() != step) {
            flow.goOn();
        }
    }

    ManualClock clock;
    ManualRunLoop loop{clock};
    FakeUserDefaults defaults;
    Consents consents{defaults};
    FakeInputEvents input;
    Subscription trust =
        consents.input.subscribe([this] { input.setTrusted(consents.input.isGranted()); });
    FakeLocationClient location;
    FakeEventStore store;
    CalendarPermission calendar{store};
    FakeSystemSettings settings;
    std::shared_ptr<PermissionsManager> permissions =
        PermissionsManager::make({input, &location,
                                  [this] {
                                      auto fresh = std::make_unique<FakeLocationClient>();
                                      fresh->status = location.status;
                                      return fresh;
                                  },
                                  calendar, settings, loop, [] {}, consents});
    int ends = 0;
    OnboardingFlow flow{permissions, settings, [this] { ++ends; }};
};

} // namespace

TEST_F(OnboardingFlowTest, beginsWithTheWelcomeFromWhichThereIsNoWayBack) {
    EXPECT_EQ(flow.step(), OnboardingStep::welcome);
    EXPECT_FALSE(flow.hasBack());
    flow.goBack();
    EXPECT_EQ(flow.number(), 0);
}

TEST_F(OnboardingFlowTest, goesOnThroughSixStepsAndEndsAfterTheLast) {
    for (int number = 0; number < OnboardingFlow::stepCount - 1; ++number) {
        EXPECT_EQ(flow.number(), number);
        EXPECT_EQ(flow.mainTitle(), u"Continue"_s);
        flow.goOn();
        EXPECT_TRUE(flow.hasBack());
    }
    EXPECT_EQ(flow.step(), OnboardingStep::finish);
    EXPECT_EQ(flow.mainTitle(), u"Start using Tavi"_s);
    EXPECT_EQ(ends, 0);
    flow.goOn();
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(flow.step(), OnboardingStep::finish);
}

TEST_F(OnboardingFlowTest, goesBackAStep) {
    goTo(OnboardingStep::customizing);
    flow.goBack();
    EXPECT_EQ(flow.step(), OnboardingStep::integrations);
}

TEST_F(OnboardingFlowTest, asksForTwoPermissionsOnlyAndIsStoppedByNeither) {
    for (int number = 0; number < OnboardingFlow::stepCount; ++number) {
        EXPECT_EQ(flow.asks(), number == 1 || number == 2) << number;
        EXPECT_FALSE(flow.isGranted());
        flow.goOn();
    }
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(defaults.writes, 0);
    EXPECT_EQ(location.authorizationRequests, 0);
}

TEST_F(OnboardingFlowTest, doesNotAskForTheInputWhereNothingWouldComeOfIt) {
    input.countsKeys = false;
    goTo(OnboardingStep::input);
    EXPECT_FALSE(flow.asks());
    EXPECT_FALSE(flow.offersSettings());
    EXPECT_EQ(flow.note(), inputState(false, false, false).note);
    input.countsKeys = true;
    EXPECT_TRUE(flow.asks());
    EXPECT_EQ(flow.note(), QString());
    input.countsKeys = false;
    flow.goOn();
    EXPECT_TRUE(flow.asks()) << "the location is another permission";
    EXPECT_EQ(flow.note(), QString());
}

TEST_F(OnboardingFlowTest, tellsWhatTheConsentIsForWhereItIsNotForKeys) {
    input.countsKeys = false;
    input.tellsFront = true;
    EXPECT_EQ(flow.note(), QString()) << "the welcome asks for nothing";
    goTo(OnboardingStep::input);
    EXPECT_TRUE(flow.asks());
    EXPECT_EQ(flow.note(), inputState(false, false, true).note);
    flow.allow();
    EXPECT_TRUE(flow.isGranted());
    EXPECT_EQ(flow.note(), inputState(true, false, true).note) << "it was not given for more";
    flow.goOn();
    EXPECT_EQ(flow.note(), QString());
}

TEST_F(OnboardingFlowTest, allowingTheInputIsAtOnceTheConsent) {
    goTo(OnboardingStep::input);
    flow.allow();
    EXPECT_TRUE(consents.input.isGranted());
    EXPECT_TRUE(flow.isGranted());
    EXPECT_TRUE(settings.opened.isEmpty());
    flow.goOn();
    EXPECT_FALSE(flow.isGranted()) << "the location is another permission";
}

TEST_F(OnboardingFlowTest, offersThePageOfTheInputWhereTheDesktopHasOne) {
    EXPECT_FALSE(flow.offersSettings());
    flow.openSettings();
    EXPECT_TRUE(settings.opened.isEmpty());
    goTo(OnboardingStep::input);
    EXPECT_TRUE(flow.offersSettings());
    flow.openSettings();
    EXPECT_EQ(settings.opened, QStringList{PermissionsManager::accessibilityLink()});
    settings.hasPages = false;
    EXPECT_FALSE(flow.offersSettings());
    flow.openSettings();
    EXPECT_EQ(settings.opened.size(), 1);
}

TEST_F(OnboardingFlowTest, offersNoPageOfTheLocationBesideTheButtonThatOpensIt) {
    goTo(OnboardingStep::location);
    EXPECT_FALSE(flow.offersSettings());
}

TEST_F(OnboardingFlowTest, allowingTheLocationAsksAndOpensItsPageInOneGo) {
    goTo(OnboardingStep::location);
    flow.allow();
    EXPECT_EQ(location.authorizationRequests, 1);
    EXPECT_EQ(settings.opened, QStringList{PermissionsManager::locationLink()});
}

TEST_F(OnboardingFlowTest, opensThePageOfTheLocationAlsoWhenTheRequestSucceeds) {
    location.status = LocationAuthorization::authorized;
    goTo(OnboardingStep::location);
    flow.allow();
    loop.advance(5);
    EXPECT_TRUE(flow.isGranted());
    EXPECT_EQ(settings.opened, QStringList{PermissionsManager::locationLink()});
}

TEST_F(OnboardingFlowTest, allowingTheLocationOpensNothingWhereThereIsNoPage) {
    settings.hasPages = false;
    location.status = LocationAuthorization::authorized;
    goTo(OnboardingStep::location);
    flow.allow();
    loop.advance(5);
    EXPECT_EQ(location.authorizationRequests, 1);
    EXPECT_TRUE(settings.opened.isEmpty());
}

TEST_F(OnboardingFlowTest, aRefreshSeesWhatWasAllowedElsewhere) {
    goTo(OnboardingStep::location);
    location.status = LocationAuthorization::authorized;
    EXPECT_FALSE(flow.isGranted());
    flow.refresh();
    EXPECT_TRUE(flow.isGranted());
}

TEST_F(OnboardingFlowTest, mayBeEndedByWhoHearsOfTheEnd) {
    std::unique_ptr<OnboardingFlow> ended;
    auto heard = std::make_shared<int>(0);
    ended = std::make_unique<OnboardingFlow>(permissions, settings, [&ended, heard] {
        ended.reset();
        ++*heard;
    });
    for (int number = 0; number < OnboardingFlow::stepCount; ++number) {
        ended->goOn();
    }
    EXPECT_EQ(*heard, 1);
    EXPECT_EQ(ended, nullptr);
}

} // namespace zeph
