// SPDX-License-Identifier: MIT
#include "ui/integrations/IntegrationsFixture.h"

#include <QAbstractButton>
#include <QListWidget>

using namespace Qt::StringLiterals;
using testing::SizeIs;

namespace zeph::ui {

namespace {

class ProviderConnectionsListTest : public IntegrationsFixture {
protected:
    void showAccounts(const QString &provider) {
        pane->select({.page = IntegrationsSelection::Page::accounts, .provider = provider});
        turn();
    }

    QStringList rows() {
        QStringList sentences;
        const QListWidget *const shown = list();
        for (int row = 0; shown != nullptr && row < shown->count(); ++row) {
            sentences << shown->item(row)->text();
        }
        return sentences;
    }
};

TEST_F(ProviderConnectionsListTest, saysThatThereIsNoAccount) {
    open();
    showAccounts(u"chartmogul"_s);
    EXPECT_TRUE(shows(u"No accounts yet. Add one to connect ChartMogul."_s));
    EXPECT_EQ(list(), nullptr);
    EXPECT_TRUE(button(u"Add another account"_s)->hasFocus());
}

TEST_F(ProviderConnectionsListTest, listsNameStatusAndStateOfEachAccountOfTheService) {
    const auto shop = connect(u"stripe"_s, u"sk"_s).id;
    connect(u"polar"_s, u"k"_s);
    connect(u"stripe"_s, u"sk"_s).enabled = false;
    StripeStats stats;
    stats.connectionId = shop;
    stats.error = u"Stripe error 401"_s;
    state.stripeStats = {stats};
    open();
    showAccounts(u"stripe"_s);
    EXPECT_EQ(rows(), QStringList({u"My stripe, Stripe error 401, Active, 1 of 2"_s,
                                   u"My stripe, Paused, 2 of 2"_s}));
    EXPECT_EQ(list()->accessibleName(), u"Stripe"_s);
}

TEST_F(ProviderConnectionsListTest, followsTheStateAndKeepsTheCurrentRow) {
    connect(u"stripe"_s, u"sk"_s);
    const auto second = connect(u"stripe"_s, u"sk"_s).id;
    open();
    showAccounts(u"stripe"_s);
    EXPECT_TRUE(list()->hasFocus());
    key(Qt::Key_Down);
    StripeStats stats;
    stats.connectionId = second;
    stats.error = u"HTTP 503"_s;
    state.stripeStats = {stats};
    turn();
    EXPECT_EQ(rows().at(1), u"My stripe, HTTP 503, Active, 2 of 2"_s);
    EXPECT_EQ(list()->currentRow(), 1);
    EXPECT_TRUE(list()->hasFocus());
}

TEST_F(ProviderConnectionsListTest, arrowsAndEnterOpenAnAccount) {
    connect(u"stripe"_s, u"sk"_s);
    const auto second = connect(u"stripe"_s, u"sk"_s).id;
    open();
    showAccounts(u"stripe"_s);
    key(Qt::Key_Down);
    key(Qt::Key_Return);
    EXPECT_EQ(pane->selection(),
              (IntegrationsSelection{IntegrationsSelection::Page::account, u"stripe"_s, second}));
}

TEST_F(ProviderConnectionsListTest, aClickOpensAnAccount) {
    const auto first = connect(u"stripe"_s, u"sk"_s).id;
    open();
    showAccounts(u"stripe"_s);
    QListWidget *const shown = list();
    QTest::mouseClick(shown->viewport(), Qt::LeftButton, {},
                      shown->visualItemRect(shown->item(0)).center());
    EXPECT_EQ(pane->selection().id, first);
}

TEST_F(ProviderConnectionsListTest, addingMakesAnAccountAndOpensIt) {
    connect(u"rss"_s, std::nullopt, u"https://a.org"_s);
    open();
    const auto added = addAccount(u"rss"_s);
    EXPECT_EQ(added.name, u"RSS feed 2"_s);
    EXPECT_EQ(pane->selection(),
              (IntegrationsSelection{IntegrationsSelection::Page::account, u"rss"_s, added.id}));
    EXPECT_EQ(field(u"Display name"_s)->text(), u"RSS feed 2"_s);
}

TEST_F(ProviderConnectionsListTest, twoHundredAccountsAreOneStopAndNoWidgets) {
    open();
    showAccounts(u"stripe"_s);
    const auto widgetsBefore = window.findChildren<QWidget *>().size();
    for (int count = 0; count < 200; ++count) {
        store->addConnection(u"stripe"_s, std::nullopt, std::nullopt);
    }
    turn();
    ASSERT_THAT(rows(), SizeIs(200));
    EXPECT_EQ(window.findChildren<QWidget *>().size(), widgetsBefore);
    EXPECT_GE(list()->height(), 200 * 60);
    list()->setFocus(Qt::TabFocusReason);
    key(Qt::Key_End);
    const int bottom = list()->mapTo(scroll->viewport(), QPoint(0, list()->height())).y();
    EXPECT_LE(bottom, scroll->viewport()->height() + 200) << "the last row is out of sight";
    key(Qt::Key_Tab);
    EXPECT_TRUE(button(u"Add another account"_s)->hasFocus());
}

} // namespace

} // namespace zeph::ui
