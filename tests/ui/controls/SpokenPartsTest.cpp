// SPDX-License-Identifier: MIT
#include "support/WindowFixture.h"
#include "ui/controls/Card.h"
#include "ui/controls/LinkLabel.h"
#include "ui/controls/MarkRow.h"

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

/// What assistive technology is told of parts that are more than a stock control.
class SpokenPartsTest : public WindowFixture {
protected:
    static QString description(QWidget &row) {
        QApplication::processEvents();
        return accessible(row).text(QAccessible::Description);
    }
};

TEST_F(SpokenPartsTest, aLinkIsALinkThatCanBePressed) {
    const QUrl page(u"https://example.org/keys"_s);
    auto &link = add(new LinkLabel(u"Where to find your key"_s, page));
    QUrl opened;
    link.open = [&opened](const QUrl &url) { opened = url; };
    open();
    QAccessibleInterface &spoken = accessible(link);
    EXPECT_EQ(spoken.role(), QAccessible::Link);
    EXPECT_EQ(spoken.text(QAccessible::Name), u"Where to find your key");
    EXPECT_TRUE(spoken.state().linked);
    EXPECT_TRUE(spoken.state().focusable);
    QAccessibleActionInterface *const actions = spoken.actionInterface();
    ASSERT_NE(actions, nullptr);
    ASSERT_TRUE(actions->actionNames().contains(QAccessibleActionInterface::pressAction()));
    actions->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(QTest::qWaitFor([&] { return opened == page; }));
}

TEST_F(SpokenPartsTest, aLinkThatIsOffIsNotPressed) {
    auto &link = add(new LinkLabel(u"Where to find your key"_s, QUrl(u"https://example.org"_s)));
    int openings = 0;
    link.open = [&openings](const QUrl &) { ++openings; };
    link.setEnabled(false);
    open();
    accessible(link).actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QApplication::processEvents();
    EXPECT_EQ(openings, 0);
    EXPECT_FALSE(link.isDown());
    EXPECT_TRUE(accessible(link).state().disabled);
}

TEST_F(SpokenPartsTest, marksOfACardSayTheirPlace) {
    auto &card = add(new Card);
    auto *all = new RadioRow(u"All displays"_s, u"2 monitors"_s);
    auto *first = new RadioRow(u"Left"_s, u"1920 × 1080"_s);
    auto *second = new CheckRow(u"Right"_s, {});
    for (QWidget *row : std::initializer_list<QWidget *>{all, first, second}) {
        card.addRow(row);
    }
    open();
    EXPECT_EQ(description(*all), u"2 monitors, 1 of 3");
    EXPECT_EQ(description(*second), u"3 of 3");
    first->setDetail(u"1280 × 800"_s);
    EXPECT_EQ(description(*first), u"1280 × 800, 2 of 3");
}

TEST_F(SpokenPartsTest, marksSayTheirPlaceAmongThoseThatAreThere) {
    auto &card = add(new Card);
    auto *first = new CheckRow(u"Desktop 1"_s, {});
    auto *second = new CheckRow(u"Desktop 2"_s, u"current"_s);
    card.addRow(first);
    card.addRow(second);
    open();
    ASSERT_EQ(description(*second), u"current, 2 of 2");
    first->hide();
    EXPECT_EQ(description(*second), u"current, 1 of 1");
    card.addRow(new CheckRow(u"Desktop 3"_s, {}));
    EXPECT_EQ(description(*second), u"current, 1 of 2");
}

} // namespace

} // namespace zeph::ui
