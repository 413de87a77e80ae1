// SPDX-License-Identifier: MIT
#include "golden/GoldenImage.h"
#include "ui/controls/ChoiceBox.h"
#include "ui/controls/ControlSheet.h"
#include "ui/controls/DateField.h"
#include "ui/controls/IconButton.h"
#include "ui/controls/LinkLabel.h"
#include "ui/controls/OneOfEach.h"
#include "ui/controls/PillButton.h"
#include "ui/controls/SampleControls.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCalendarWidget>
#include <QPainter>
#include <QTest>

#include <gtest/gtest.h>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

using State = ControlSheet::State;

using namespace sample;

constexpr QSize sheetSize{880, 1250};
constexpr int column = 188; // where the controls stand

void addChoices(ControlSheet &sheet) {
    const int y = 130;
    // The switch is painted at the end of its target.
    sheet.add({column - 4, y}, switchThatIs(false));
    sheet.add({column + 64, y}, switchThatIs(false), State::hovered);
    sheet.add({column + 140, y}, switchThatIs(true));
    sheet.add({column + 208, y}, switchThatIs(true), State::hovered);
    sheet.add({column + 282, y}, switchThatIs(false), State::focused);
    sheet.add({column + 357, y}, switchThatIs(true), State::focused);
    sheet.add({column + 431, y}, switchThatIs(false), State::disabled);
    sheet.add({column + 522, y}, switchThatIs(true), State::disabled);

    const QStringList backgrounds{u"Solid"_s, u"Time of day"_s, u"Transparent"_s};
    sheet.add({column, 218}, segmented(backgrounds, 1));
    sheet.add({column + 306, 218}, segmented({u"Metric"_s, u"Imperial"_s}, 0), State::focused);
    sheet.add({column + 486, 218}, segmented({u"Auto"_s, u"Custom"_s}, 0), State::disabled);
    sheet.add({column, 310}, sizeChoice(0));
    sheet.add({column + 128, 310}, sizeChoice(1));
    sheet.add({column + 256, 310}, sizeChoice(2));
    sheet.add({column + 384, 310}, sizeChoice(1), State::focused);
    sheet.add({column + 512, 310}, sizeChoice(1), State::disabled);
}

void addAmounts(ControlSheet &sheet) {
    sheet.add({column, 468}, slider(35), State::normal, 198);
    sheet.add({column + 214, 468}, slider(60), State::focused, 198);
    sheet.add({column + 428, 468}, slider(35), State::disabled, 198);
    sheet.add({column, 554}, stepper(3));
    sheet.add({column + 104, 554}, stepper(1));
    sheet.add({column + 208, 554}, stepper(3), State::focused);
    sheet.add({column + 312, 554}, stepper(3), State::disabled);
    const QStringList hexes{u"#1A1F4B"_s, u"#121A3A"_s, u"#143C6B"_s, u"#1B4D36"_s, u"#3E2060"_s,
                            u"#5A1738"_s, u"#33415C"_s, u"#4A3F2A"_s, u"#2A2170"_s, u"#15555A"_s};
    for (int index = 0; index < hexes.size(); ++index) {
        sheet.add({column + index * 53, 646}, swatch(hexes[index], index == 0),
                  index == 2 ? State::focused : State::normal);
    }
    sheet.add({column + 10 * 53, 646}, swatch(hexes[3], true), State::disabled);
}

void addFields(ControlSheet &sheet) {
    const int width = 212;
    sheet.add({column, 740}, field({}), State::normal, width);
    sheet.add({column + 236, 740}, field(u"Main st"_s), State::focused, width);
    sheet.add({column, 816}, field(u"Main store"_s), State::normal, width);
    sheet.add({column + 236, 816}, field(u"signups"_s, true), State::normal, width);
    sheet.add({column + 472, 816}, field(u"signups"_s, true), State::focused, 140);
    sheet.add({column, 916}, secret(false), State::normal, width);
    sheet.add({column + 236, 916}, field(u"Main store"_s), State::disabled, width);
    sheet.add({column + 472, 916}, secret(true), State::normal, 180);
    sheet.add({column + 472, 740}, new DateField(QDate(2027, 3, 14)));
}

void addButtons(ControlSheet &sheet) {
    const auto primary = [] { return button(u"Save changes"_s, PillButton::Kind::primary); };
    const auto secondary = [] { return button(u"Refresh"_s, PillButton::Kind::secondary); };
    sheet.add({column, 1010}, primary());
    sheet.add({column + 147, 1010}, primary(), State::hovered);
    sheet.add({column + 293, 1010}, primary(), State::pressed);
    sheet.add({column + 440, 1010}, primary(), State::focused);
    sheet.add({column, 1084}, primary(), State::disabled);
    sheet.add({column + 147, 1084}, secondary());
    sheet.add({column + 255, 1084}, secondary(), State::hovered);
    sheet.add({column + 363, 1084}, secondary(), State::pressed);
    sheet.add({column + 470, 1084}, secondary(), State::focused);
    sheet.add({column, 1158}, secondary(), State::disabled);
    sheet.add({column + 108, 1158}, button(u"Remove"_s, PillButton::Kind::destructive));
    auto *adding = secondary();
    adding->setText(u"Add header"_s);
    adding->setHeight(PillButton::Height::small);
    adding->setSymbol(u"plus.circle"_s);
    sheet.add({column + 218, 1158}, adding);
    sheet.add({column + 366, 1158}, new IconButton(u"minus.circle.fill"_s, u"Remove"_s));
    sheet.add({column + 445, 1158}, new IconButton(u"minus.circle.fill"_s, u"Remove"_s),
              State::hovered);
    sheet.add({column + 500, 1158}, new ChoiceBox({u"Last year"_s}), State::normal, 150);
    sheet.add({column, 1212}, linkTo(u"Where to find your key"_s));
    sheet.add({column + 182, 1212}, linkTo(u"Where to find your key"_s), State::focused);
    auto *large = button(u"Continue"_s, PillButton::Kind::primary);
    large->setHeight(PillButton::Height::large);
    sheet.add({column + 380, 1206}, large);
    sheet.add({column + 510, 1210}, button(u"All integrations"_s, PillButton::Kind::plain));
}

QImage allStates(Appearance appearance) {
    ControlSheet sheet(sheetSize, appearance);
    addChoices(sheet);
    addAmounts(sheet);
    addFields(sheet);
    addButtons(sheet);
    return sheet.picture();
}

/// What opens from a control, over the ground of the window.
QImage opened(QWidget &popup) {
    QImage picture(popup.size() + QSize(40, 40), QImage::Format_ARGB32_Premultiplied);
    picture.fill(qRgb(16, 17, 38));
    QPainter painter(&picture);
    popup.render(&painter, QPoint(20, 20), QRegion(), QWidget::DrawChildren);
    return picture;
}

constexpr GoldenOptions letters{.channelTolerance = 3, .allowedPixels = 12};

} // namespace

TEST(ControlsGolden, inTheDark) {
    EXPECT_TRUE(matchesGolden(allStates(Appearance::dark), u"controls-dark"_s, letters));
}

TEST(ControlsGolden, inTheLight) {
    EXPECT_TRUE(matchesGolden(allStates(Appearance::light), u"controls-light"_s, letters));
}

TEST(ControlsGolden, fromRightToLeft) {
    EXPECT_TRUE(
        matchesGolden(oneOfEach(Appearance::dark, 1, true), u"controls-mirrored"_s, letters));
}

TEST(ControlsGolden, withMoreContrast) {
    EXPECT_TRUE(matchesGolden(oneOfEach(Appearance::highContrast, 1, false), u"controls-contrast"_s,
                              letters));
}

TEST(ControlsGolden, withALargerFont) {
    const QFont before = QApplication::font();
    QFont large = before;
    for (const double enlarged : {1.5, 2.0}) {
        large.setPointSizeF(before.pointSizeF() * enlarged);
        QApplication::setFont(large);
        EXPECT_TRUE(matchesGolden(oneOfEach(Appearance::dark, enlarged, false),
                                  u"controls-font-%1"_s.arg(enlarged * 100), letters));
    }
    QApplication::setFont(before);
}

TEST(ControlsGolden, theListOfAChoice) {
    for (const Appearance appearance : {Appearance::dark, Appearance::light}) {
        QWidget window;
        Look look(window, appearance);
        look.setMotion(false);
        ChoiceBox box({u"Last 3 months"_s, u"Last 6 months"_s, u"Last year"_s,
                       u"Last 2 years (stacked)"_s, u"Last 3 years (stacked)"_s},
                      &window);
        box.setCurrentIndex(2);
        window.show();
        box.showPopup();
        box.view()->setCurrentIndex(box.model()->index(3, 0));
        EXPECT_TRUE(matchesGolden(opened(*box.view()->window()),
                                  appearance == Appearance::dark ? u"controls-list-dark"_s
                                                                 : u"controls-list-light"_s,
                                  letters));
        box.hidePopup();
    }
}

TEST(ControlsGolden, theCalendar) {
    for (const Appearance appearance : {Appearance::dark, Appearance::light}) {
        QWidget window;
        Look look(window, appearance);
        look.setMotion(false);
        DateField field(QDate(2027, 3, 14), &window);
        field.setToday(QDate(2027, 3, 4));
        window.show();
        field.setFocus();
        QTest::keyClick(&field, Qt::Key_F4);
        QWidget &calendar = *field.calendarWidget();
        EXPECT_TRUE(matchesGolden(opened(*calendar.window()),
                                  appearance == Appearance::dark ? u"controls-calendar-dark"_s
                                                                 : u"controls-calendar-light"_s,
                                  letters));
        calendar.window()->close();
    }
}

} // namespace zeph::ui
