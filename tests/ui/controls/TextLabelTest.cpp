// SPDX-License-Identifier: MIT
#include "ui/controls/TextLabel.h"

#include "support/WindowFixture.h"
#include "ui/controls/WordWidths.h"

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

const QString longText = u"Hides folders and files via your file manager — they are removed, not "
                         "covered by Tavi. Still on the desktop when you turn this off."_s;

BalancedText wrapped(const QString &text, double width, int mostLines = 0) {
    return {text, font(TypeRole::detail), {width, 18, mostLines}};
}

class TextLabelTest : public WindowFixture {
protected:
    TextLabel &label(const QString &text, TypeRole role = TypeRole::detail) {
        return add(new TextLabel(text, role, TextLabel::Ink::second));
    }
};

} // namespace

TEST(BalancedText, linesAreAsNarrowAsTheirNumberAllows) {
    const BalancedText wide = wrapped(longText, 440);
    const BalancedText narrow = wrapped(longText, wide.width());
    ASSERT_GE(wide.lineCount(), 2);
    EXPECT_EQ(narrow.lineCount(), wide.lineCount());
    EXPECT_GT(wrapped(longText, wide.width() - 4).lineCount(), wide.lineCount());
    EXPECT_EQ(wide.height(), 18 * wide.lineCount());
}

TEST(BalancedText, holdsForAllWidthsThatMakeTheSameLines) {
    const BalancedText two = wrapped(longText, 440);
    ASSERT_EQ(two.lineCount(), 2);
    for (int width = 200; width < 600; width += 10) {
        if (two.holdsFor(width)) {
            EXPECT_EQ(wrapped(longText, width).lines(), two.lines()) << width;
        }
    }
    EXPECT_TRUE(two.holdsFor(440));
    EXPECT_TRUE(two.holdsFor(two.width() + 4));
    EXPECT_FALSE(two.holdsFor(two.width() - 4)) << "it would take a third line";
    EXPECT_FALSE(two.holdsFor(441)) << "it may fit on one";
}

TEST(BalancedText, aLineHoldsForAllWidthsFromItsOwnOn) {
    const BalancedText one = wrapped(u"Show the clock as 14:30."_s, 440);
    EXPECT_TRUE(one.holdsFor(one.width()));
    EXPECT_TRUE(one.holdsFor(4000));
    EXPECT_FALSE(one.holdsFor(one.width() - 4));
}

TEST(BalancedText, holdsForItsWidthWhateverTheTextIs) {
    for (const QString &text : {QString(), u"W"_s, u"two\nlines"_s, u"שלום עולם"_s}) {
        EXPECT_TRUE(wrapped(text, 1).holdsFor(1)) << qPrintable(text);
    }
    EXPECT_TRUE(wrapped(longText, 200, 2).holdsFor(200));
    EXPECT_FALSE(wrapped(longText, 200, 2).holdsFor(201)) << "more of it may be seen";
}

TEST(WordWidths, foretellTheLinesOfTheLayout) {
    QTextLayout layout(joined(longText), font(TypeRole::detail));
    const auto lay = [&layout](double width) {
        layout.beginLayout();
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLineWidth(width);
        }
        layout.endLayout();
        return layout.lineCount();
    };
    ASSERT_EQ(lay(100'000), 1);
    const WordWidths words(layout.lineAt(0), layout.text());
    for (int width = static_cast<int>(words.widest()) + 2; width < 900; width += 3) {
        EXPECT_EQ(words.linesIn(width), lay(width)) << width;
    }
}

TEST(WordWidths, canNotTellOfTextThatTurnsOrHasParagraphs) {
    EXPECT_TRUE(WordWidths::canTell(u"a – b (c), 1.5 %"_s));
    for (const QString &text :
         {u"a שלום"_s, u"تاوي"_s, u"a\u2028b"_s, u"🎉"_s, u"a\tb"_s, u"\u202Ea"_s, QString()}) {
        EXPECT_FALSE(WordWidths::canTell(text)) << qPrintable(text);
    }
}

TEST(BalancedText, whatFitsInALineStaysOneLine) {
    const BalancedText one = wrapped(u"Show the clock as 14:30."_s, 440);
    EXPECT_EQ(one.lineCount(), 1);
    EXPECT_LT(one.width(), 440);
}

TEST(BalancedText, noLineBeginsWithADash) {
    for (int width = 96; width < 440; width += 7) {
        for (const QString &line : wrapped(longText, width).lines()) {
            EXPECT_FALSE(line.startsWith(u'—')) << width;
        }
        for (const QString &line :
             wrapped(u"one two–three four—five six – seven"_s, width).lines()) {
            EXPECT_FALSE(line.startsWith(u'–') || line.startsWith(u'—')) << width;
        }
    }
}

TEST(BalancedText, noWordBreaksAtItsHyphen) {
    const QString text = u"Time stays pinned bottom-left, read-only keys, top-to-bottom"_s;
    for (int width = 110; width < 400; width += 7) {
        for (const QString &line : wrapped(text, width).lines()) {
            EXPECT_FALSE(line.endsWith(u'-')) << width << qPrintable(line);
        }
    }
}

TEST(BalancedText, joinsInTheLayoutAlone) {
    EXPECT_EQ(joined(u"a — b"_s), u"a\u00A0— b"_s);
    EXPECT_EQ(joined(u"read-only"_s), u"read-\u2060only"_s);
    EXPECT_EQ(joined(u"-5 - 3"_s), u"-5 - 3"_s);
    EXPECT_EQ(joined(u"a\nb"_s), u"a\u2028b"_s);
}

TEST(BalancedText, aWordIsNotBrokenToKeepTheNumberOfLines) {
    const QString text = u"A incomprehensibilities"_s;
    const double word = QFontMetricsF(font(TypeRole::detail)).horizontalAdvance(text.mid(2));
    const BalancedText balanced = wrapped(text, word + 4);
    ASSERT_EQ(balanced.lineCount(), 2);
    EXPECT_EQ(balanced.lines().last(), u"incomprehensibilities");
}

TEST(BalancedText, whatIsBeyondTheMostLinesIsElided) {
    const BalancedText cut = wrapped(longText, 200, 2);
    EXPECT_EQ(cut.lineCount(), 2);
    EXPECT_TRUE(cut.isElided());
    EXPECT_TRUE(cut.lines().last().endsWith(u'…'));
    EXPECT_FALSE(wrapped(longText, 440, 4).isElided());
}

TEST(BalancedText, placesInTheTextAndInTheLayoutBelongTogether) {
    const QString text = u"read-only keys, top-to-bottom"_s;
    const BalancedText lines = wrapped(text, 120);
    for (int at = 0; at <= text.size(); ++at) {
        EXPECT_EQ(lines.toText(lines.toLayout(at)), at);
    }
}

TEST_F(TextLabelTest, itsTextStaysAsItWasSet) {
    TextLabel &one = label(longText);
    EXPECT_EQ(one.text(), longText);
    EXPECT_EQ(accessible(one).text(QAccessible::Name), longText);
    EXPECT_EQ(accessible(one).role(), QAccessible::StaticText);
}

TEST_F(TextLabelTest, aDetailIsAtMost440Wide) {
    TextLabel &detail = label(longText);
    TextLabel &body = label(longText, TypeRole::body);
    EXPECT_EQ(detail.heightForWidth(900), 2 * 18);
    EXPECT_LE(detail.sizeHint().width(), 440);
    EXPECT_EQ(body.heightForWidth(1200), 20);
}

TEST_F(TextLabelTest, itIsAsHighAsItsLines) {
    TextLabel &one = label(longText);
    EXPECT_EQ(one.heightForWidth(200) % 18, 0);
    EXPECT_GT(one.heightForWidth(200), one.heightForWidth(400));
    EXPECT_EQ(label(u"Saved"_s, TypeRole::title).heightForWidth(300), 40);
}

TEST_F(TextLabelTest, whatIsElidedIsWholeInTheTooltip) {
    TextLabel &one = label(longText);
    one.setElides(true);
    one.setFixedWidth(120);
    open();
    one.grab();
    EXPECT_EQ(one.heightForWidth(120), 18);
    EXPECT_EQ(one.toolTip(), longText);
    one.setText(u"Short"_s);
    one.grab();
    EXPECT_EQ(one.toolTip(), QString());
}

TEST_F(TextLabelTest, theMouseMarksAndTheKeyboardCopies) {
    TextLabel &one = label(u"Stripe error 401"_s);
    one.setSelectable(true);
    open();
    const int middle = one.height() / 2;
    QTest::mousePress(&one, Qt::LeftButton, {}, QPoint(0, middle));
    QMouseEvent move(QEvent::MouseMove, QPointF(one.width() - 1, middle),
                     one.mapToGlobal(QPointF(one.width() - 1, middle)), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&one, &move);
    EXPECT_EQ(one.selectedText(), u"Stripe error 401");
}

TEST_F(TextLabelTest, whatIsNotToBeMarkedTakesNoClicks) {
    TextLabel &one = label(u"Stripe error 401"_s);
    open();
    QTest::mousePress(&one, Qt::LeftButton);
    EXPECT_FALSE(one.hasSelectedText());
    EXPECT_EQ(one.focusPolicy(), Qt::NoFocus);
}

} // namespace zeph::ui
