// SPDX-License-Identifier: MIT
#include "ui/controls/Swatch.h"
#include "drawing/painting/BackdropPainter.h"
#include "drawing/palette/Palette.h"
#include "support/WindowFixture.h"
#include "ui/controls/PillButton.h"

#include <QFocusFrame>
#include <QHBoxLayout>
#include <QRegion>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

class SwatchTest : public WindowFixture {
protected:
    SwatchTest() {
        auto *column = new QHBoxLayout(&row);
        column->setSpacing(8);
        for (Swatch *swatch : {&midnight, &forest, &wine}) {
            column->addWidget(swatch);
        }
        open();
    }

    QList<QFocusFrame *> rings() const { return window.findChildren<QFocusFrame *>(); }

    QWidget &row = add(new QWidget);
    Swatch &midnight = *new Swatch(u"Midnight"_s, u"#1A1F4B"_s);
    Swatch &forest = *new Swatch(u"Forest"_s, u"#1B4D36"_s);
    Swatch &wine = *new Swatch(u"Wine"_s, u"#5A1738"_s);
    PillButton &after = add(new PillButton(u"After"_s));
};

} // namespace

TEST_F(SwatchTest, isPaintedAsTheWallpaperWouldBe) {
    EXPECT_EQ(forest.size(), QSize(45, 36));
    QImage expected(45, 36, QImage::Format_RGB32);
    const Palette palette = Palette::custom(*Color::fromHex(u"#1B4D36"_s), FocusState::off);
    paintBackdrop(AmbientBackground::still(palette), expected.rect(), expected);

    const QImage picture = forest.grab().toImage();

    for (const QPoint place : {QPoint(12, 12), QPoint(22, 18), QPoint(30, 30)}) {
        EXPECT_EQ(picture.pixelColor(place), expected.pixelColor(place));
    }
}

TEST_F(SwatchTest, theChosenOneHasARingInTheAccentAndATick) {
    const QImage before = forest.grab().toImage();
    forest.setChecked(true);

    ASSERT_EQ(rings().size(), 1);
    EXPECT_EQ(rings().front()->widget(), &forest);
    const QPoint beside = forest.mapTo(&window, QPoint(-3, 18));
    EXPECT_EQ(window.grab().toImage().pixelColor(beside), look.tokens().accent);
    EXPECT_NE(forest.grab().toImage(), before);

    wine.setChecked(true);
    ASSERT_EQ(rings().size(), 1);
    EXPECT_EQ(rings().front()->widget(), &wine);
}

TEST_F(SwatchTest, theFocusOfTheKeyboardOutshinesTheAccent) {
    forest.setChecked(true);
    forest.setFocus(Qt::TabFocusReason);
    const QPoint beside = forest.mapTo(&window, QPoint(-3, 18));
    EXPECT_EQ(window.grab().toImage().pixelColor(beside), look.tokens().focus);
}

TEST_F(SwatchTest, theArrowsChooseAndTheRowIsOneStop) {
    midnight.setChecked(true);
    midnight.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&midnight, Qt::Key_Right);
    EXPECT_TRUE(forest.isChecked());
    EXPECT_TRUE(forest.hasFocus());

    QTest::keyClick(&forest, Qt::Key_Tab);
    EXPECT_TRUE(after.hasFocus());
    QTest::keyClick(&after, Qt::Key_Backtab);
    EXPECT_TRUE(forest.hasFocus());
}

TEST_F(SwatchTest, isReadAsARadioButtonWithTheNameOfTheColour) {
    forest.setChecked(true);
    EXPECT_EQ(accessible(forest).role(), QAccessible::RadioButton);
    EXPECT_EQ(accessible(forest).text(QAccessible::Name), u"Forest");
    EXPECT_TRUE(accessible(forest).state().checked);
    EXPECT_EQ(forest.toolTip(), u"Forest");
}

} // namespace zeph::ui
