// SPDX-License-Identifier: MIT
#include "support/WindowFixture.h"
#include "ui/controls/IconButton.h"
#include "ui/controls/LinkLabel.h"
#include "ui/controls/PillButton.h"

#include <QSignalSpy>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

class ButtonsTest : public WindowFixture {
protected:
    ButtonsTest() { open(); }
};

} // namespace

TEST_F(ButtonsTest, spaceAndEnterPress) {
    auto &pill = add(new PillButton(u"Save changes"_s, PillButton::Kind::primary));
    auto &icon = add(new IconButton(u"minus.circle.fill"_s, u"Remove"_s));
    auto &link = add(new LinkLabel(u"Where to find your key"_s, QUrl(u"https://example.org"_s)));
    link.open = [](const QUrl &) {};
    for (QPushButton *button : std::initializer_list<QPushButton *>{&pill, &icon, &link}) {
        QSignalSpy presses(button, &QPushButton::clicked);
        button->setFocus(Qt::TabFocusReason);
        QTest::keyClick(button, Qt::Key_Space);
        QTest::keyClick(button, Qt::Key_Return);
        EXPECT_EQ(presses.count(), 2);
    }
}

TEST_F(ButtonsTest, aButtonIsAsHighAsAskedAndAsWideAsItsText) {
    PillButton button(u"Refresh"_s);
    const int text = QFontMetrics(font(TypeRole::button)).horizontalAdvance(u"Refresh"_s);
    EXPECT_NEAR(button.sizeHint().width(), text + 2 * 18, 1);
    EXPECT_EQ(button.sizeHint().height(), 34);
    button.setHeight(PillButton::Height::small);
    EXPECT_EQ(button.sizeHint().height(), 30);
    EXPECT_NEAR(button.sizeHint().width(), text + 2 * 14, 1);
    button.setHeight(PillButton::Height::large);
    EXPECT_EQ(button.sizeHint().height(), 40);
    EXPECT_NEAR(button.sizeHint().width(), text + 2 * 24, 1);
    button.setSymbol(u"plus.circle"_s);
    EXPECT_NEAR(button.sizeHint().width(), text + 2 * 24 + 16 + 8, 1);
}

TEST_F(ButtonsTest, everythingGrowsWithTheFont) {
    PillButton button(u"Refresh"_s);
    const QSize designed = button.sizeHint();
    const QFont before = QApplication::font();
    QFont large = before;
    large.setPointSizeF(before.pointSizeF() * 2);
    QApplication::setFont(large);
    const QSize grown = button.sizeHint();
    QApplication::setFont(before);

    EXPECT_EQ(grown.height(), designed.height() * 2);
    EXPECT_NEAR(grown.width(), designed.width() * 2, 3);
}

TEST_F(ButtonsTest, eachKindHasItsColours) {
    const auto back = [this](PillButton::Kind kind) {
        auto &button = add(new PillButton(u"Text"_s, kind));
        QApplication::processEvents();
        return button.grab().toImage().pixelColor(9, button.height() / 2);
    };
    EXPECT_EQ(back(PillButton::Kind::primary), look.tokens().ink);
    EXPECT_EQ(back(PillButton::Kind::secondary), back(PillButton::Kind::destructive));
    EXPECT_NE(back(PillButton::Kind::secondary), back(PillButton::Kind::primary));
}

TEST_F(ButtonsTest, aChevronPointsTheOtherWayFromRightToLeft) {
    auto &back = add(new PillButton(u""_s, PillButton::Kind::plain));
    back.setSymbol(u"chevron.right"_s);
    QApplication::processEvents();
    back.setFixedSize(back.sizeHint());
    QApplication::processEvents();
    const QImage plain = back.grab().toImage();
    back.setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(back.grab().toImage(), plain.mirrored(true, false));
    EXPECT_NE(back.grab().toImage(), plain);
}

TEST_F(ButtonsTest, anIconButtonSaysItsNameAndShowsIt) {
    auto &icon = add(new IconButton(u"minus.circle.fill"_s, u"Remove header"_s));
    EXPECT_EQ(icon.sizeHint(), QSize(30, 30));
    EXPECT_EQ(icon.toolTip(), u"Remove header");
    EXPECT_EQ(accessible(icon).role(), QAccessible::Button);
    EXPECT_EQ(accessible(icon).text(QAccessible::Name), u"Remove header");
}

TEST_F(ButtonsTest, aLinkOpensItsPage) {
    const QUrl page(u"https://example.org/keys"_s);
    auto &link = add(new LinkLabel(u"Where to find your key"_s, page));
    QUrl opened;
    link.open = [&opened](const QUrl &url) { opened = url; };
    QTest::mouseClick(&link, Qt::LeftButton);
    EXPECT_EQ(opened, page);
    EXPECT_EQ(accessible(link).text(QAccessible::Name), u"Where to find your key");
    EXPECT_EQ(link.sizeHint().height(), 28);
}

} // namespace zeph::ui
