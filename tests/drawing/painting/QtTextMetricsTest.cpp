// SPDX-License-Identifier: MIT
#include "drawing/painting/QtTextMetrics.h"

#include "drawing/painting/FontFamilies.h"
#include "drawing/painting/TextShaper.h"
#include "support/QtPrinters.h"

#include <QRawFont>

#include <gtest/gtest.h>

#include <cmath>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

class QtTextMetricsTest : public testing::Test {
protected:
    static FontSpec font(double size, FontWeight weight = FontWeight::regular) {
        FontSpec spec;
        spec.size = size;
        spec.weight = weight;
        return spec;
    }
    double width(const QString &text, const FontSpec &spec) const {
        return metrics.size(text, spec).width();
    }

    QtTextMetrics metrics;
};

const QStringList worldly{
    u"Ein ziemlich langer Name, der nirgends hineinpasst"_s,
    u"日本語のネットワーク名がとても長い場合はどうなりますか"_s,
    u"שלום עולם זה טקסט ארוך מאוד שצריך להיחתך בסוף"_s,
    u"👩‍👩‍👧‍👦👩‍👩‍👧‍👦🇩🇪🇫🇷🎉 and a longer text behind all of that"_s,
    u"مرحبا بالعالم هذا نص طويل جدا يجب قصه"_s,
    QString(5000, u'W')};

} // namespace

TEST_F(QtTextMetricsTest, heightDependsOnTheFontAloneAndIsWhole) {
    const double height = metrics.size(u"x"_s, font(17)).height();
    EXPECT_EQ(height, std::ceil(height));
    EXPECT_GT(height, 17);
    EXPECT_LT(height, 17 * 1.6);
    EXPECT_EQ(metrics.size(u""_s, font(17)), QSizeF(0, height));
    EXPECT_EQ(metrics.size(u"日本語 🎉 ĝ"_s, font(17)).height(), height);
}

TEST_F(QtTextMetricsTest, widthGrowsEvenlyWithTheSize) {
    const double one = width(u"Partly cloudy"_s, font(10));
    EXPECT_NEAR(width(u"Partly cloudy"_s, font(40)), 4 * one, 0.02 * 4 * one);
    EXPECT_NEAR(width(u"Partly cloudy"_s, font(14.45)), 1.445 * one, 0.02 * 1.445 * one);
}

TEST_F(QtTextMetricsTest, weightsAndDesignsDiffer) {
    const QString text = u"Hamburgefonstiv"_s;
    EXPECT_LT(width(text, font(17, FontWeight::thin)), width(text, font(17, FontWeight::light)));
    EXPECT_LT(width(text, font(17, FontWeight::light)), width(text, font(17, FontWeight::medium)));
    EXPECT_LT(width(text, font(17, FontWeight::medium)),
              width(text, font(17, FontWeight::semibold)));
    FontSpec rounded = font(17);
    rounded.design = FontDesign::rounded;
    EXPECT_NE(width(text, rounded), width(text, font(17)));
}

TEST_F(QtTextMetricsTest, takesTheTypefacesOfTheLook) {
    const auto family = [](const FontSpec &spec) {
        return shapeText(u"Hello"_s, spec).runs.at(0).rawFont().familyName();
    };
    FontSpec rounded = font(21);
    rounded.design = FontDesign::rounded;
    EXPECT_TRUE(family(font(17, FontWeight::light)).startsWith(u"Inter"));
    EXPECT_TRUE(family(rounded).startsWith(u"Quicksand"));
}

TEST_F(QtTextMetricsTest, emojiComeInColourAndDigitsFromTheTypeface) {
    const auto families = [](const QString &text, const FontSpec &spec) {
        QStringList names;
        for (const QGlyphRun &run : shapeText(text, spec).runs) {
            names << run.rawFont().familyName();
        }
        names.removeDuplicates();
        return names;
    };
    FontSpec rounded = font(21);
    rounded.design = FontDesign::rounded;
    for (const QString &emoji :
         {u"🎧"_s, u"☕"_s, u"👍🏽"_s, u"👩‍👩‍👧‍👦"_s, u"⚡"_s, u"⭐"_s}) {
        EXPECT_EQ(families(emoji, font(17)), QStringList{u"Noto Color Emoji"_s})
            << qPrintable(emoji);
        EXPECT_EQ(families(emoji, rounded), QStringList{u"Noto Color Emoji"_s})
            << qPrintable(emoji);
    }
    for (const QString &plain : {u"0123456789"_s, u"#*©®™"_s, u"→ ↓ ·"_s}) {
        for (const QString &family : families(plain, font(17)) + families(plain, rounded)) {
            EXPECT_NE(family, u"Noto Color Emoji"_s) << qPrintable(plain);
        }
    }
}

TEST(FontFamilies, emojiStandBehindAFamilyThatIsThere) {
    const auto with = [](const QStringList &installed, FontDesign design = FontDesign::standard) {
        FontSpec spec;
        spec.design = design;
        const QStringList names = FontFamilies::of(
            spec, [&](const QString &family) { return installed.contains(family); });
        const qsizetype emoji = names.indexOf(u"Noto Color Emoji"_s);
        return emoji < 1 ? QString() : names[emoji - 1];
    };
    EXPECT_EQ(with({u"Inter"_s, u"DejaVu Sans"_s}), u"Inter"_s);
    EXPECT_EQ(with({u"Noto Sans"_s, u"DejaVu Sans"_s}), u"Noto Sans"_s);
    EXPECT_EQ(with({u"DejaVu Sans"_s}), u"DejaVu Sans"_s);
    EXPECT_EQ(with({u"Quicksand"_s}, FontDesign::rounded), u"Inter"_s);
    EXPECT_EQ(with({u"Noto Sans"_s}, FontDesign::rounded), u"Noto Sans"_s);
    EXPECT_EQ(with({}), QString());
}

TEST_F(QtTextMetricsTest, letterSpacingIsAddedToEachLetter) {
    FontSpec spaced = font(11, FontWeight::semibold);
    spaced.letterSpacing = 1.5;
    EXPECT_NEAR(width(u"HHHH"_s, spaced),
                width(u"HHHH"_s, font(11, FontWeight::semibold)) + 4 * 1.5, 0.1);
}

TEST_F(QtTextMetricsTest, evenDigitsMakeAllTimesEquallyWide) {
    FontSpec even = font(84, FontWeight::thin);
    even.evenDigits = true;
    const double clock = width(u"00:00"_s, even);
    for (const auto &time : {u"11:11"_s, u"14:59"_s, u"20:47"_s, u"23:58"_s, u"16:30"_s}) {
        EXPECT_NEAR(width(time, even), clock, 1e-6);
    }
    EXPECT_NE(width(u"11:11"_s, font(84, FontWeight::thin)),
              width(u"00:00"_s, font(84, FontWeight::thin)));
    EXPECT_GT(width(u"12:345"_s, even), clock);
}

TEST_F(QtTextMetricsTest, evenDigitsStandInTheMiddleOfTheirCells) {
    FontSpec even = font(20);
    even.evenDigits = true;
    const ShapedText ones = shapeText(u"11"_s, even);
    const ShapedText zeros = shapeText(u"00"_s, even);
    const double narrow = shapeText(u"1"_s, font(20)).width;
    const double cell = zeros.width / 2;
    ASSERT_GT(cell, narrow + 1);
    const auto positions = ones.runs.at(0).positions();
    EXPECT_NEAR(positions.at(0).x(), (cell - narrow) / 2, 0.05);
    EXPECT_NEAR(positions.at(1).x(), cell + (cell - narrow) / 2, 0.05);
}

TEST_F(QtTextMetricsTest, leadingBlanksAreAsWideAsTheDigitsTheyStandFor) {
    FontSpec even = font(13, FontWeight::light);
    even.evenDigits = true;
    EXPECT_NEAR(width(u" 3% CPU"_s, even), width(u"13% CPU"_s, even), 0.05);
    EXPECT_NEAR(width(u"  3%"_s, even), width(u"413%"_s, even), 0.05);
    EXPECT_LT(width(u"1 3%"_s, even), width(u"113%"_s, even) - 1) << "a blank between words";
    EXPECT_LT(width(u" a"_s, even), width(u"0a"_s, even) - 1);
    const double blank = shapeText(u" 3%"_s, even).runs.at(0).positions().at(1).x();
    EXPECT_NEAR(blank, shapeText(u"13%"_s, even).runs.at(0).positions().at(1).x(), 0.05);
}

TEST_F(QtTextMetricsTest, lettersAreKernedBesideEvenDigitsToo) {
    FontSpec even = font(17, FontWeight::light);
    even.evenDigits = true;
    EXPECT_NEAR(width(u"AVAToTyWa"_s, even), width(u"AVAToTyWa"_s, font(17, FontWeight::light)),
                1e-6);
    EXPECT_LT(width(u"AV"_s, even), width(u"A"_s, even) + width(u"V"_s, even) - 0.1);
}

TEST_F(QtTextMetricsTest, nothingIsKernedBesideADigit) {
    for (const FontWeight weight : {FontWeight::thin, FontWeight::light, FontWeight::regular}) {
        FontSpec even = font(84, weight);
        even.evenDigits = true;
        const double cell = width(u"0"_s, even);
        const double colon = width(u"88:88"_s, even) - 4 * cell;
        for (const QString &time : {u"11:47"_s, u"74:11"_s, u"71:17"_s, u"47:74"_s}) {
            EXPECT_NEAR(width(time, even), 4 * cell + colon, 1e-6) << qPrintable(time);
        }
        for (const QString &text : {u"4T1"_s, u"7A7"_s, u"1Y1"_s, u"7-7"_s, u"7.4"_s}) {
            EXPECT_NEAR(width(text, even), 2 * cell + width(text.mid(1, 1), even), 0.1)
                << qPrintable(text);
        }
    }
}

TEST_F(QtTextMetricsTest, cutTextsOfAllScriptsFit) {
    for (const QString &text : worldly) {
        for (const double offered : {0.0, 3.0, 40.0, 111.5, 208.0}) {
            const QString cut = metrics.elided(text, font(13, FontWeight::light), offered);
            EXPECT_LE(width(cut, font(13, FontWeight::light)), offered + 0.01);
            EXPECT_TRUE(cut.isEmpty() || cut.endsWith(u'…'));
            EXPECT_TRUE(text.startsWith(cut.chopped(cut.isEmpty() ? 0 : 1)));
        }
        EXPECT_GT(metrics.elided(text, font(13, FontWeight::light), 111.5).size(), 5);
    }
}

TEST_F(QtTextMetricsTest, textThatFitsIsNotCut) {
    for (const QString &text : worldly) {
        EXPECT_EQ(metrics.elided(text, font(13), width(text, font(13))), text);
    }
}

TEST_F(QtTextMetricsTest, wrappedLinesFitAndLoseNothingButSpaces) {
    for (const QString &text : worldly) {
        const QStringList lines = metrics.wrapped(text, font(17), 150);
        EXPECT_GT(lines.size(), 1);
        for (const QString &line : lines) {
            EXPECT_LE(width(line, font(17)), 150.01);
        }
        EXPECT_EQ(lines.join(QString()).remove(u' '), QString(text).remove(u' '));
    }
}

TEST_F(QtTextMetricsTest, handsOverTheShapeThatItMeasured) {
    const auto isSame = [](const ShapedText &one, const ShapedText &other) {
        return one.width == other.width && one.factor == other.factor && one.runs == other.runs;
    };
    const ShapedText plain = shapeText(u"Hello 11:47"_s, font(17));
    EXPECT_TRUE(isSame(metrics.shaped(u"Hello 11:47"_s, font(17)), plain)) << "not measured";
    EXPECT_EQ(width(u"Hello 11:47"_s, font(17)), plain.width);
    EXPECT_TRUE(isSame(metrics.shaped(u"Hello 11:47"_s, font(17)), plain));
    EXPECT_TRUE(isSame(metrics.shaped(u"Hello 11:47"_s, font(17)), plain)) << "painted again";
    EXPECT_EQ(metrics.shaped(u"Hello 11:47"_s, font(20)).width,
              shapeText(u"Hello 11:47"_s, font(20)).width);
}

TEST_F(QtTextMetricsTest, answersStayTheSameWhenTheCacheOverflows) {
    const double before = width(u"first"_s, font(17));
    for (int at = 0; at < 3000; ++at) {
        metrics.size(QString::number(at), font(17));
    }
    EXPECT_EQ(width(u"first"_s, font(17)), before);
}

} // namespace zeph
