// SPDX-License-Identifier: MIT
#include "widgets/WidgetRows.h"

#include "drawing/view/WidgetScaleLayout.h"
#include "widgets/WidgetFixture.h"

namespace zeph {

using namespace Qt::StringLiterals;

using WidgetRows = WidgetFixture;

TEST_F(WidgetRows, sectionLabelIsSmallSpacedUpperCase) {
    const TextItem label = textItem(sectionLabel(u"Your rhythm"_s, palette), u"YOUR RHYTHM"_s);
    EXPECT_EQ(label.style.font.size, 11);
    EXPECT_EQ(label.style.font.weight, FontWeight::semibold);
    EXPECT_EQ(label.style.font.letterSpacing, 1.5);
    expectColor(label.style.color, textColor(0.45));
}

TEST_F(WidgetRows, calmLineIsASymbolAndALightSentence) {
    const View line = calmLine(u"calendar"_s, u"Nothing"_s, palette);
    const SymbolItem icon = symbolItem(line, u"calendar"_s);
    EXPECT_EQ(icon.box.size(), symbolBox(15));
    expectColor(icon.color, textColor(0.9));
    const TextItem sentence = textItem(line, u"Nothing"_s);
    EXPECT_EQ(sentence.style.font.size, 17);
    EXPECT_EQ(sentence.style.font.weight, FontWeight::light);
    EXPECT_TRUE(sentence.style.font.evenDigits);
    expectColor(sentence.style.color, textColor(0.85));
}

TEST_F(WidgetRows, textOpacityMultipliesThePalettesOwn) {
    const TextItem sentence =
        textItem(calmLine(u"calendar"_s, u"Nothing"_s, palette), u"Nothing"_s);
    EXPECT_DOUBLE_EQ(sentence.style.color.alpha, 0.95 * 0.85);
}

TEST_F(WidgetRows, calmLineCentresItsSymbolInAFixedFrame) {
    const View line = calmLine(u"calendar"_s, u"Nothing"_s, palette);
    EXPECT_EQ(symbolItem(line, u"calendar"_s).box.center().x(), 9);
    EXPECT_EQ(textItem(line, u"Nothing"_s).origin.x(), 18 + 10);
}

TEST_F(WidgetRows, chipsAndSmallCalmLinesShareOneColumnOfText) {
    const View chip = metricChip({u"cpu"_s, u"9% CPU"_s}, palette);
    const View small = scaledWidget({0.85}, calmLine(u"calendar"_s, u"Nothing"_s, palette));
    EXPECT_NEAR(textItem(chip, u"9% CPU"_s).origin.x(), textItem(small, u"Nothing"_s).origin.x(),
                1e-9);
    EXPECT_NEAR(symbolItem(chip, u"cpu"_s).box.left(), 0, 1e-9);
    EXPECT_NEAR(symbolItem(small, u"calendar"_s).box.left(), 0, 1e-9);
}

TEST_F(WidgetRows, calmLineCutsItsSentenceAtTheTail) {
    const View line = calmLine(u"calendar"_s, u"A sentence that is far too long"_s, palette);
    std::vector<DrawItem> items;
    line.place({0, 0, 100, 24}, {metrics}, items);
    const auto &sentence = std::get<TextItem>(items.back());
    EXPECT_TRUE(sentence.text.startsWith(u"A sen"_s) && sentence.text.endsWith(u'…'));
}

TEST_F(WidgetRows, noSentenceIsWiderThan520Points) {
    const QString words(130, u'x');
    for (const View &line :
         {calmLine(u"calendar"_s, words, palette), calmListLine(u"calendar"_s, words, palette)}) {
        EXPECT_LE(naturalSize(line).width(), 520);
        EXPECT_EQ(texts(line).front(), QString(48, u'x') + u'…');
        EXPECT_EQ(symbolItem(line, u"calendar"_s).box.left(), 0);
    }
    EXPECT_EQ(naturalSize(calmLine(u"calendar"_s, u"Nothing"_s, palette)).width(), 28 + 70);
}

TEST_F(WidgetRows, noHeadingIsWiderThan490Points) {
    const View label = sectionLabel(QString(130, u'x'), palette);
    EXPECT_LE(naturalSize(label).width(), 490);
    EXPECT_EQ(texts(label).front(), QString(48, u'X') + u'…');
    EXPECT_EQ(textItem(sectionLabel(u"Mine"_s, palette), u"MINE"_s).origin.x(), 0);
}

TEST_F(WidgetRows, aListLineIsTwentyFourPointsHigh) {
    const View line = calmListLine(u"circle"_s, u"Water the plants"_s, palette);
    EXPECT_EQ(naturalSize(line).height(), 24);
    EXPECT_EQ(symbolItem(line, u"circle"_s).box.center().y(), 12);
}

TEST_F(WidgetRows, metricChipIsSmallAndLight) {
    const View chip = metricChip({u"cpu"_s, u"9% CPU"_s}, palette);
    const SymbolItem icon = symbolItem(chip, u"cpu"_s);
    EXPECT_EQ(icon.box.size(), symbolBox(13));
    expectColor(icon.color, textColor(0.55));
    const TextItem fact = textItem(chip, u"9% CPU"_s);
    EXPECT_EQ(fact.style.font.size, 13);
    EXPECT_EQ(fact.style.font.weight, FontWeight::light);
    EXPECT_TRUE(fact.style.font.evenDigits);
    expectColor(fact.style.color, textColor(0.82));
}

TEST_F(WidgetRows, setsANameFromRightToLeftApart) {
    EXPECT_EQ(setApart(u"Anna"_s), u"Anna"_s);
    EXPECT_EQ(setApart(u"中秋节 7"_s), u"中秋节 7"_s);
    EXPECT_EQ(setApart(u"عيد"_s), u"\u2068عيد\u2069"_s);
    EXPECT_EQ(setApart(u"יום"_s), u"\u2068יום\u2069"_s);
}

TEST_F(WidgetRows, chipGridHasTwoColumnsOf240Points) {
    const View grid =
        chipGrid({{u"a"_s, u"one"_s}, {u"b"_s, u"two"_s}, {u"c"_s, u"three"_s}}, palette);
    EXPECT_EQ(naturalSize(grid).width(), 240 + 10 + 240);
    EXPECT_EQ(textItem(grid, u"two"_s).origin.x() - textItem(grid, u"one"_s).origin.x(), 250);
    EXPECT_EQ(textItem(grid, u"two"_s).origin.y(), textItem(grid, u"one"_s).origin.y());
    EXPECT_EQ(textItem(grid, u"three"_s).origin.x(), textItem(grid, u"one"_s).origin.x());
    const double chipHeight = naturalSize(metricChip({u"a"_s, u"one"_s}, palette)).height();
    EXPECT_EQ(textItem(grid, u"three"_s).origin.y() - textItem(grid, u"one"_s).origin.y(),
              chipHeight + 10);
}

TEST_F(WidgetRows, chipGridCutsWhatDoesNotFitItsColumn) {
    const QString name(80, u'x');
    const QString drawn = texts(chipGrid({{u"a"_s, name}}, palette)).front();
    EXPECT_LT(drawn.size(), 40);
    EXPECT_TRUE(drawn.endsWith(u'…'));
}

TEST_F(WidgetRows, rowsStandTenPointsApart) {
    const View rows = widgetRows({calmListLine(u"circle"_s, u"one"_s, palette),
                                  calmListLine(u"circle"_s, u"two"_s, palette)});
    EXPECT_EQ(textItem(rows, u"two"_s).origin.y() - textItem(rows, u"one"_s).origin.y(), 34);
}

} // namespace zeph
