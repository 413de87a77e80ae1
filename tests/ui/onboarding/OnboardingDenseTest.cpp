// SPDX-License-Identifier: MIT
#include "golden/GoldenImage.h"
#include "ui/onboarding/OnboardingFixture.h"

#include <QScrollArea>
#include <QScrollBar>

namespace zeph {

using namespace Qt::StringLiterals;

/// The window on a large dense screen, in other sizes of text, mirrored, and in high contrast.
class GoldenOnboardingDense : public OnboardingFixture {
protected:
    ~GoldenOnboardingDense() override {
        window.reset();
        QApplication::setLayoutDirection(Qt::LeftToRight);
        setTextSize(10);
    }

    static void setTextSize(double points) {
        QFont font = QApplication::font();
        font.setPointSizeF(points);
        QApplication::setFont(font);
    }

    QImage picture() { return window->grab().toImage(); }

    QScrollBar *bar() const { return window->findChild<QScrollArea *>()->verticalScrollBar(); }
};

TEST_F(GoldenOnboardingDense, welcome) {
    open();
    EXPECT_EQ(window->devicePixelRatioF(), 2);
    EXPECT_EQ(window->size(), QSize(470, 580));
    EXPECT_TRUE(matchesGolden(picture(), u"onboarding-0-welcome@2x"_s));
}

TEST_F(GoldenOnboardingDense, customizing) {
    openAt(OnboardingStep::customizing);
    EXPECT_TRUE(matchesGolden(picture(), u"onboarding-4-customizing@2x"_s));
}

TEST_F(GoldenOnboardingDense, mirroredWhereOneReadsFromTheRight) {
    QApplication::setLayoutDirection(Qt::RightToLeft);
    openAt(OnboardingStep::customizing);
    EXPECT_GT(button(u"Back"_s)->mapTo(window.get(), QPoint()).x(),
              button(u"Continue"_s)->mapTo(window.get(), QPoint()).x());
    EXPECT_TRUE(matchesGolden(picture(), u"onboarding-4-customizing-mirrored"_s));
}

TEST_F(GoldenOnboardingDense, twiceTheTextIsTwiceTheWindow) {
    setTextSize(20);
    openAt(OnboardingStep::input);
    EXPECT_EQ(window->size(), QSize(940, 1160));
    EXPECT_EQ(bar()->maximum(), 0);
    EXPECT_TRUE(matchesGolden(picture(), u"onboarding-1-rhythm-200"_s));
}

TEST_F(GoldenOnboardingDense, anotherSizeOfTextIsTakenOverWhileTheWindowIsOpen) {
    openAt(OnboardingStep::location);
    setTextSize(15);
    // The toolkit itself tells windows only while the application's own loop runs.
    QEvent changed(QEvent::ApplicationFontChange);
    QApplication::sendEvent(window.get(), &changed);
    settle();
    EXPECT_EQ(window->size(), QSize(705, 870));
    EXPECT_EQ(window->step(), OnboardingStep::location);
}

TEST_F(GoldenOnboardingDense, highContrastHasNeitherSkyNorSun) {
    appearance.highContrast = true;
    openAt(OnboardingStep::input);
    EXPECT_TRUE(matchesGolden(picture(), u"onboarding-1-rhythm-contrast"_s));
}

TEST_F(GoldenOnboardingDense, textTooLargeForTheScreenIsScrolledTo) {
    setTextSize(30);
    openAt(OnboardingStep::integrations);
    EXPECT_LE(window->height(), 1440);
    EXPECT_GT(bar()->maximum(), 0);
    EXPECT_EQ(bar()->value(), 0);
    bar()->setValue(bar()->maximum());
    settle();
    EXPECT_NE(button(u"Continue"_s), nullptr) << "the footer stands still";
}

} // namespace zeph
