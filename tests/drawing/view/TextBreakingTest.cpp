// SPDX-License-Identifier: MIT
#include "drawing/view/TextBreaking.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

double tenEach(const QString &text) {
    return 10.0 * static_cast<double>(text.size());
}

} // namespace

TEST(ElideTail, textThatFitsStaysWhole) {
    EXPECT_EQ(elideTail(u"Hello"_s, 50, tenEach), u"Hello"_s);
    EXPECT_EQ(elideTail(u""_s, 0, tenEach), u""_s);
}

TEST(ElideTail, longTextEndsWithAnEllipsis) {
    EXPECT_EQ(elideTail(u"Hello world"_s, 60, tenEach), u"Hello…"_s);
    EXPECT_EQ(elideTail(u"Hello world"_s, 59, tenEach), u"Hell…"_s);
}

TEST(ElideTail, noSpaceStandsBeforeTheEllipsis) {
    EXPECT_EQ(elideTail(u"Hello world"_s, 70, tenEach), u"Hello…"_s);
}

TEST(ElideTail, withRoomForTheEllipsisAloneNothingElseIsLeft) {
    EXPECT_EQ(elideTail(u"Hello"_s, 10, tenEach), u"…"_s);
    EXPECT_EQ(elideTail(u"Hello"_s, 9, tenEach), u""_s);
    EXPECT_EQ(elideTail(u"Hello"_s, -5, tenEach), u""_s);
}

TEST(ElideTail, neverCutsInsideACharacter) {
    // A family of four persons is one character of eleven code units, a flag one of four.
    const QString family = u"👩‍👩‍👧‍👦"_s;
    ASSERT_EQ(family.size(), 11);
    EXPECT_EQ(elideTail(family + u"abc"_s, 110, tenEach), u"…"_s);
    EXPECT_EQ(elideTail(family + u"abc"_s, 120, tenEach), family + u"…"_s);
    EXPECT_EQ(elideTail(u"🇩🇪🇫🇷"_s, 70, tenEach), u"🇩🇪…"_s);
    EXPECT_EQ(elideTail(u"e\u0301e\u0301e\u0301"_s, 45, tenEach), u"e\u0301…"_s);
}

TEST(ElideTail, costFollowsTheResultNotTheLength) {
    int measured = 0;
    qsizetype longest = 0;
    const QString text(100000, u'a');
    const QString cut = elideTail(text, 200, [&](const QString &part) {
        ++measured;
        if (measured > 1) { // the first asks whether all of it fits
            longest = std::max(longest, part.size());
        }
        return tenEach(part);
    });
    EXPECT_EQ(cut.size(), 20);
    EXPECT_LE(longest, 40);
    EXPECT_LE(measured, 15);
}

TEST(BreakIntoLines, wordsGoToTheNextLine) {
    EXPECT_EQ(breakIntoLines(u"one two three"_s, 70, tenEach),
              QStringList({u"one two"_s, u"three"_s}));
    EXPECT_EQ(breakIntoLines(u"one two three"_s, 69, tenEach),
              QStringList({u"one"_s, u"two"_s, u"three"_s}));
}

TEST(BreakIntoLines, withoutALimitOneLineIsEnough) {
    EXPECT_EQ(breakIntoLines(u"one two three"_s, std::numeric_limits<double>::infinity(), tenEach),
              QStringList({u"one two three"_s}));
}

TEST(BreakIntoLines, longWordIsBrokenInside) {
    EXPECT_EQ(breakIntoLines(u"a abcdefg b"_s, 40, tenEach),
              QStringList({u"a"_s, u"abcd"_s, u"efg"_s, u"b"_s}));
}

TEST(BreakIntoLines, aCharacterAtLeastStandsOnEachLine) {
    EXPECT_EQ(breakIntoLines(u"abc"_s, 0, tenEach), QStringList({u"a"_s, u"b"_s, u"c"_s}));
}

TEST(BreakIntoLines, ownLineBreaksAreKept) {
    EXPECT_EQ(breakIntoLines(u"one\r\ntwo\n\nthree"_s, 500, tenEach),
              QStringList({u"one"_s, u"two"_s, u""_s, u"three"_s}));
    EXPECT_EQ(breakIntoLines(u""_s, 500, tenEach), QStringList({u""_s}));
}

TEST(BreakIntoLines, hanBreaksBetweenCharacters) {
    EXPECT_EQ(breakIntoLines(u"日本語の文"_s, 30, tenEach), QStringList({u"日本語"_s, u"の文"_s}));
}

TEST(BreakIntoLines, eachLineHasTheDirectionOfItsParagraph) {
    EXPECT_EQ(breakIntoLines(u"one two שלום!"_s, 70, tenEach),
              QStringList({u"one two"_s, u"\u200eשלום!"_s}));
    EXPECT_EQ(breakIntoLines(u"שלום one two"_s, 70, tenEach),
              QStringList({u"שלום"_s, u"\u200fone two"_s}));
    EXPECT_EQ(breakIntoLines(u"שלום (2026)."_s, 70, tenEach),
              QStringList({u"שלום"_s, u"\u200f(2026)."_s}));
    EXPECT_EQ(breakIntoLines(u"one\nשלום\n\ntwo"_s, 70, tenEach),
              QStringList({u"one"_s, u"שלום"_s, u""_s, u"two"_s}));
}

} // namespace zeph
