// SPDX-License-Identifier: MIT
#include "ui/controls/SecretField.h"
#include "support/WindowFixture.h"
#include "ui/controls/IconButton.h"

#include <QClipboard>
#include <QFocusFrame>
#include <QMenu>
#include <QSignalSpy>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr auto key = "rk_live_4242";

class SecretFieldTest : public WindowFixture {
protected:
    SecretFieldTest() {
        QApplication::clipboard()->setText(u"before"_s);
        open();
        field.setFocus(Qt::TabFocusReason);
        QTest::keyClicks(&field, QLatin1String(key));
    }

    void reveal() { QTest::mouseClick(&eye, Qt::LeftButton); }
    /// The field without the eye, which looks different in each state.
    QImage picture() { return field.grab(QRect(0, 0, field.width() - 40, 36)).toImage(); }

    SecretField &field = add(new SecretField(u"Read-only key"_s));
    IconButton &eye = *field.findChild<IconButton *>();
};

} // namespace

TEST_F(SecretFieldTest, theTextIsHiddenUntilTheEyeIsPressed) {
    EXPECT_FALSE(field.isRevealed());
    const QImage hidden = picture();
    reveal();
    EXPECT_TRUE(field.isRevealed());
    const QImage revealed = picture();
    EXPECT_NE(revealed, hidden);
    field.setText(u"rk_live_4243"_s);
    EXPECT_NE(picture(), revealed) << "it is the text that is shown";
    reveal();
    EXPECT_EQ(picture(), hidden) << "as many dots";
}

TEST_F(SecretFieldTest, theEyeTakesRoomOnlyWhereItIs) {
    const int usual = field.textMargins().left();
    EXPECT_GT(field.textMargins().right(), usual);
    field.setLayoutDirection(Qt::RightToLeft);
    EXPECT_GT(field.textMargins().left(), usual);
    EXPECT_EQ(field.textMargins().right(), usual);
    field.clear();
    EXPECT_EQ(field.textMargins().left(), usual) << "what it asks for begins like in other fields";
    field.setText(u"rk_1"_s);
    EXPECT_GT(field.textMargins().left(), usual);
}

TEST_F(SecretFieldTest, theEyeTellsWhatItWillDoAndIsThereWithATextOnly) {
    EXPECT_TRUE(eye.isVisible());
    EXPECT_EQ(accessible(eye).text(QAccessible::Name), u"Show");
    EXPECT_EQ(eye.symbol(), u"eye");
    reveal();
    EXPECT_EQ(accessible(eye).text(QAccessible::Name), u"Hide");
    EXPECT_EQ(eye.symbol(), u"eye.slash");
    field.clear();
    EXPECT_FALSE(eye.isVisible());
}

TEST_F(SecretFieldTest, emptyingHidesAgain) {
    reveal();
    field.clear();
    EXPECT_FALSE(field.isRevealed());
    QTest::keyClicks(&field, u"another"_s);
    EXPECT_FALSE(field.isRevealed());
}

TEST_F(SecretFieldTest, aWindowThatIsOpenedAgainShowsNoSecret) {
    reveal();
    window.hide();
    window.show();
    EXPECT_FALSE(field.isRevealed());
}

TEST_F(SecretFieldTest, nothingCopiesOrCutsAlsoNotWhenRevealed) {
    for (const bool isRevealed : {false, true}) {
        if (isRevealed) {
            reveal();
        }
        field.selectAll();
        QTest::keyClick(&field, Qt::Key_C, Qt::ControlModifier);
        QTest::keyClick(&field, Qt::Key_Insert, Qt::ControlModifier);
        field.copy();
        EXPECT_EQ(QApplication::clipboard()->text(), u"before") << isRevealed;
        QTest::keyClick(&field, Qt::Key_X, Qt::ControlModifier);
        QTest::keyClick(&field, Qt::Key_Delete, Qt::ShiftModifier);
        EXPECT_EQ(QApplication::clipboard()->text(), u"before") << isRevealed;
        EXPECT_EQ(field.text(), QLatin1String(key)) << isRevealed;
    }
}

TEST_F(SecretFieldTest, theMenuOffersNeitherCopyNorCutAlsoNotWhenRevealed) {
    reveal();
    field.selectAll();
    const std::unique_ptr<QMenu> menu(field.createStandardContextMenu());
    for (const QAction *action : menu->actions()) {
        if (action->objectName() == u"edit-copy"_s || action->objectName() == u"edit-cut"_s) {
            EXPECT_FALSE(action->isEnabled()) << action->objectName().toStdString();
        }
    }
}

TEST_F(SecretFieldTest, aDragWithinIsASelectionNotADragOut) {
    EXPECT_FALSE(field.dragEnabled());
    reveal();
    QTest::mousePress(&field, Qt::LeftButton, {}, QPoint(13, 18));
    QTest::mouseMove(&field, QPoint(150, 18));
    EXPECT_TRUE(field.hasSelectedText());
    QTest::mouseRelease(&field, Qt::LeftButton, {}, QPoint(150, 18));
    EXPECT_EQ(QApplication::clipboard()->text(), u"before");
}

TEST_F(SecretFieldTest, aClickFindsItsPlaceInTheRevealedText) {
    reveal();
    field.grab();
    QTest::mouseClick(&field, Qt::LeftButton, {}, QPoint(field.width() - 60, 18));
    EXPECT_EQ(field.cursorPosition(), field.text().size());
    QTest::mouseClick(&field, Qt::LeftButton, {}, QPoint(13, 18));
    EXPECT_EQ(field.cursorPosition(), 0);
    QTest::mouseDClick(&field, Qt::LeftButton, {}, QPoint(30, 18));
    EXPECT_EQ(field.selectionLength(), field.text().size());
}

TEST_F(SecretFieldTest, aRevealedTextCanBeReplacedByTyping) {
    reveal();
    field.selectAll();
    QTest::keyClicks(&field, u"new"_s);
    EXPECT_EQ(field.text(), u"new");
    EXPECT_TRUE(field.isRevealed());
}

TEST_F(SecretFieldTest, aLongTextScrollsToItsCursor) {
    field.setFixedWidth(120);
    reveal();
    field.setText(QString(60, u'x') + u"END"_s);
    field.end(false);
    const QImage atEnd = picture();
    field.home(false);
    EXPECT_NE(picture(), atEnd);
}

TEST_F(SecretFieldTest, whatWasEmptiedCannotBeBroughtBack) {
    while (!field.text().isEmpty()) {
        QTest::keyClick(&field, Qt::Key_Backspace);
    }
    ASSERT_TRUE(field.text().isEmpty());

    EXPECT_FALSE(field.isUndoAvailable());
    field.undo();
    QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(field.text().isEmpty());
    field.redo();
    EXPECT_TRUE(field.text().isEmpty());

    field.setEchoMode(QLineEdit::Normal); // in which the toolkit undoes anything
    field.undo();
    EXPECT_TRUE(field.text().isEmpty());
}

TEST_F(SecretFieldTest, undoingIsNoWayToAnEarlierKey) {
    field.selectAll();
    QTest::keyClicks(&field, u"new"_s);
    field.undo();
    EXPECT_FALSE(field.text().contains(u"rk_live"_s));
}

TEST_F(SecretFieldTest, isReadAsAPasswordOfItsLengthAlsoWhenRevealed) {
    for (const bool isRevealed : {false, true}) {
        if (isRevealed) {
            reveal();
        }
        QAccessibleInterface &read = accessible(field);
        EXPECT_EQ(read.role(), QAccessible::EditableText);
        EXPECT_TRUE(read.state().passwordEdit) << isRevealed;
        const QString value = read.text(QAccessible::Value);
        EXPECT_EQ(value, QString(12, value.at(0))) << isRevealed;
        ASSERT_NE(read.textInterface(), nullptr);
        EXPECT_FALSE(read.textInterface()->text(0, 12).contains(u"rk"_s)) << isRevealed;
    }
}

TEST_F(SecretFieldTest, theInputMethodLearnsNothing) {
    reveal();
    field.selectAll();
    EXPECT_EQ(field.inputMethodQuery(Qt::ImSurroundingText).toString(), QString());
    EXPECT_EQ(field.inputMethodQuery(Qt::ImCurrentSelection).toString(), QString());
    EXPECT_TRUE(field.inputMethodHints().testFlag(Qt::ImhSensitiveData));
    EXPECT_TRUE(field.inputMethodHints().testFlag(Qt::ImhHiddenText));
}

TEST_F(SecretFieldTest, hiddenAgainItTellsThatItsTextChangedOnceOnly) {
    reveal();
    QSignalSpy changes(&field, &QLineEdit::textChanged);
    field.clear();
    EXPECT_EQ(changes.count(), 1);
}

} // namespace zeph::ui
