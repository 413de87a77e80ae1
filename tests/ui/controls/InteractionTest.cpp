// SPDX-License-Identifier: MIT
#include "support/WindowFixture.h"
#include "ui/controls/PillButton.h"
#include "ui/controls/Ring.h"
#include "ui/controls/TextField.h"

#include <QEnterEvent>
#include <QScrollArea>
#include <QScrollBar>

namespace zeph::ui {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

QColor middleOf(const QImage &picture) {
    return picture.pixelColor(picture.width() / 2, picture.height() / 2);
}

class InteractionTest : public WindowFixture {
protected:
    InteractionTest() { open(); }

    QList<QFocusFrame *> rings() const { return window.findChildren<QFocusFrame *>(); }

    static void enter(QWidget &widget) {
        const QPointF place(5, 5);
        QEnterEvent event(place, place, place);
        QApplication::sendEvent(&widget, &event);
    }

    TextField &other = add(new TextField);
    PillButton &button = add(new PillButton(u""_s)); // without a text in the middle
};

} // namespace

TEST_F(InteractionTest, theTabKeyBringsARingAndTakesItAway) {
    other.setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(rings().isEmpty());

    QTest::keyClick(&other, Qt::Key_Tab);

    ASSERT_TRUE(button.hasFocus());
    ASSERT_EQ(rings().size(), 1);
    EXPECT_TRUE(rings().front()->isVisible());
    EXPECT_TRUE(rings().front()->geometry().contains(button.geometry().adjusted(-3, -3, 3, 3)));

    QTest::keyClick(&button, Qt::Key_Backtab);
    EXPECT_TRUE(rings().isEmpty());
}

TEST_F(InteractionTest, aClickBringsNoRing) {
    QTest::mouseClick(&button, Qt::LeftButton);
    button.setFocus(Qt::MouseFocusReason);

    EXPECT_TRUE(button.hasFocus());
    EXPECT_TRUE(rings().isEmpty());
}

TEST_F(InteractionTest, aKeyAfterAClickBringsTheRingAndAClickTakesItAway) {
    button.setFocus(Qt::MouseFocusReason);

    QTest::keyClick(&button, Qt::Key_Shift);
    EXPECT_TRUE(rings().isEmpty()) << "a modifier alone does nothing";
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_EQ(rings().size(), 1);

    QTest::mousePress(&button, Qt::LeftButton);
    EXPECT_TRUE(rings().isEmpty());
}

TEST_F(InteractionTest, focusThatComesBackWithTheWindowKeepsItsRing) {
    button.setFocus(Qt::TabFocusReason);
    button.clearFocus();

    button.setFocus(Qt::ActiveWindowFocusReason);

    EXPECT_EQ(rings().size(), 1);
}

TEST_F(InteractionTest, theRingLiesOverWhatIsAroundAndTakesNoClicks) {
    button.setFocus(Qt::TabFocusReason);

    ASSERT_EQ(rings().size(), 1);
    EXPECT_EQ(rings().front()->parentWidget(), &window);
    EXPECT_TRUE(rings().front()->testAttribute(Qt::WA_TransparentForMouseEvents));
    const QImage picture = window.grab().toImage();
    const QPoint beside(button.x() - 3, button.geometry().center().y());
    EXPECT_EQ(picture.pixelColor(beside), look.tokens().focus);
}

TEST_F(InteractionTest, theRingGoesWithAControlThatIsDeleted) {
    auto *doomed = new PillButton(u"Remove"_s);
    add(doomed);
    QApplication::processEvents();
    doomed->setFocus(Qt::TabFocusReason);
    ASSERT_EQ(rings().size(), 1);

    delete doomed;

    EXPECT_TRUE(rings().isEmpty());
}

TEST_F(InteractionTest, theRingScrollsWithWhatItIsAround) {
    auto &area = add(new QScrollArea);
    auto *content = new QWidget;
    content->resize(200, 900);
    auto *inner = new PillButton(u"Inner"_s, PillButton::Kind::secondary, content);
    inner->move(20, 300);
    area.setWidget(content);
    QApplication::processEvents();

    inner->setFocus(Qt::TabFocusReason);

    ASSERT_EQ(rings().size(), 1);
    const auto above = [&] {
        return inner->mapTo(&window, QPoint()).y() - rings().front()->mapTo(&window, QPoint()).y();
    };
    EXPECT_TRUE(area.isAncestorOf(rings().front()));
    const int before = above();
    area.verticalScrollBar()->setValue(250);
    QApplication::processEvents();
    EXPECT_EQ(above(), before);
}

TEST_F(InteractionTest, hoveringGlidesForNinetyMilliseconds) {
    const QColor quiet = middleOf(button.grab().toImage());

    enter(button);
    animation.passes(0ms);
    EXPECT_EQ(middleOf(button.grab().toImage()), quiet);
    animation.passes(45ms);
    const QColor between = middleOf(button.grab().toImage());
    EXPECT_NE(between, quiet);
    animation.passes(45ms);
    const QColor hovered = middleOf(button.grab().toImage());
    EXPECT_NE(hovered, between);
    animation.passes(200ms);
    EXPECT_EQ(middleOf(button.grab().toImage()), hovered);
}

TEST_F(InteractionTest, withoutMotionHoverIsThereAtOnce) {
    const QColor quiet = middleOf(button.grab().toImage());
    look.setMotion(false);

    enter(button);
    const QColor hovered = middleOf(button.grab().toImage());
    animation.passes(200ms);

    EXPECT_NE(hovered, quiet);
    EXPECT_EQ(middleOf(button.grab().toImage()), hovered);
}

TEST_F(InteractionTest, whatIsDisabledIsNotHovered) {
    look.setMotion(false);
    button.setEnabled(false);
    const QColor quiet = middleOf(button.grab().toImage());

    enter(button);

    EXPECT_EQ(middleOf(button.grab().toImage()), quiet);
}

} // namespace zeph::ui
