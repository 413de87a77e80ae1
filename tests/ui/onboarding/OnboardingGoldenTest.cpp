// SPDX-License-Identifier: MIT
#include "golden/GoldenImage.h"
#include "ui/onboarding/OnboardingFixture.h"

namespace zeph {

using namespace Qt::StringLiterals;

/// Every step as a person sees it first.
class GoldenOnboarding : public OnboardingFixture {
protected:
    QImage picture() { return window->grab().toImage(); }

    void expectStep(OnboardingStep step, const QString &name) {
        openAt(step);
        EXPECT_TRUE(matchesGolden(picture(), u"onboarding-"_s + name));
    }
};

TEST_F(GoldenOnboarding, welcome) {
    expectStep(OnboardingStep::welcome, u"0-welcome"_s);
}

TEST_F(GoldenOnboarding, rhythm) {
    expectStep(OnboardingStep::input, u"1-rhythm"_s);
}

TEST_F(GoldenOnboarding, rhythmAllowed) {
    openAt(OnboardingStep::input);
    click(u"Allow"_s);
    EXPECT_TRUE(matchesGolden(picture(), u"onboarding-1-rhythm-allowed"_s));
}

TEST_F(GoldenOnboarding, rhythmWhereKeysCanNotBeCounted) {
    input.countsKeys = false;
    expectStep(OnboardingStep::input, u"1-rhythm-uncounted"_s);
}

TEST_F(GoldenOnboarding, rhythmWhereOnlyTheAppInFrontIsTold) {
    input.countsKeys = false;
    input.tellsFront = true;
    expectStep(OnboardingStep::input, u"1-rhythm-front"_s);
}

TEST_F(GoldenOnboarding, place) {
    expectStep(OnboardingStep::location, u"2-place"_s);
}

TEST_F(GoldenOnboarding, integrations) {
    expectStep(OnboardingStep::integrations, u"3-integrations"_s);
}

TEST_F(GoldenOnboarding, customizing) {
    expectStep(OnboardingStep::customizing, u"4-customizing"_s);
}

TEST_F(GoldenOnboarding, finish) {
    expectStep(OnboardingStep::finish, u"5-finish"_s);
}

} // namespace zeph
