// SPDX-License-Identifier: MIT
#include "ui/integrations/IntegrationsFixture.h"

#include "services/forms/ServiceCards.h"
#include "ui/controls/Tile.h"

#include <QAbstractButton>
#include <QScrollBar>

using namespace Qt::StringLiterals;
using testing::Contains;
using testing::IsEmpty;
using testing::SizeIs;

namespace zeph::ui {

namespace {

class IntegrationsPaneTest : public IntegrationsFixture {
protected:
    /// The visible tiles in the order that Tab takes.
    QStringList cards() {
        button(u"Stripe"_s)->setFocus(Qt::TabFocusReason);
        return walk();
    }

    const Tile &card(const QString &title) { return dynamic_cast<const Tile &>(*button(title)); }
};

TEST_F(IntegrationsPaneTest, headerAndNoticeSayWhereKeysAre) {
    open();
    EXPECT_TRUE(shows(u"Connect with your own API keys. Tavi calls each service directly from your "
                      "computer — no middleman."_s));
    EXPECT_TRUE(shows(u"API keys live in your keyring"_s));
    EXPECT_TRUE(shows(u"Your desktop may ask for your login password when you save a key or when "
                      "Tavi reads one. Tavi only accesses its own keyring entries — never "
                      "passwords or secrets from other apps."_s));
}

TEST_F(IntegrationsPaneTest, showsEveryCardInItsOrder) {
    open();
    QStringList titles;
    for (const CardGroup &group : cardGroups(*store)) {
        EXPECT_TRUE(shows(group.title)) << qPrintable(group.title);
        for (const ServiceCard &card : group.cards) {
            titles << card.title;
        }
    }
    EXPECT_FALSE(titles.isEmpty());
    EXPECT_EQ(cards(), titles);
}

TEST_F(IntegrationsPaneTest, cardsFollowTheStoreOnceATurn) {
    open();
    EXPECT_EQ(card(u"Stripe"_s).words().state, QString());
    store->addConnection(u"stripe"_s, std::nullopt, std::nullopt);
    store->addConnection(u"stripe"_s, std::nullopt, std::nullopt);
    turn();
    EXPECT_EQ(card(u"Stripe"_s).words().state, u"2 connected"_s);
    store->setQuoteEnabled(false);
    turn();
    EXPECT_EQ(card(u"Quote of the Day"_s).words().state, QString());
}

TEST_F(IntegrationsPaneTest, endpointsComeAndGoWithoutTakingTheFocusAway) {
    open();
    button(u"Reddit"_s)->setFocus(Qt::TabFocusReason);
    const CustomAPIConfig endpoint{QUuid::createUuid(), u"Signups"_s, u"https://a.org"_s, {}, {}};
    store->upsertCustomAPI(endpoint);
    settle();
    EXPECT_TRUE(button(u"Reddit"_s)->hasFocus());
    const QStringList with = cards();
    EXPECT_EQ(with.indexOf(u"Signups"_s), with.indexOf(u"Add custom API"_s) - 1);
    removeForGood(*store, endpoint.id);
    settle();
    EXPECT_EQ(button(u"Signups"_s), nullptr);
}

TEST_F(IntegrationsPaneTest, aCardLeadsToItsAccountsAndBackToItself) {
    open();
    button(u"Reddit"_s)->setFocus(Qt::TabFocusReason);
    key(Qt::Key_Space);
    EXPECT_EQ(pane->selection(),
              (IntegrationsSelection{IntegrationsSelection::Page::accounts, u"reddit"_s, {}}));
    EXPECT_TRUE(shows(u"No accounts yet. Add one to connect Reddit."_s));
    EXPECT_TRUE(pane->goBack());
    turn();
    EXPECT_EQ(pane->selection(), IntegrationsSelection());
    EXPECT_TRUE(button(u"Reddit"_s)->hasFocus());
    EXPECT_FALSE(pane->goBack());
}

TEST_F(IntegrationsPaneTest, theWayBackFromAnAccountLeadsToTheCardOfItsService) {
    connect(u"rss"_s, std::nullopt, u"https://a.org"_s);
    open();
    showAccount(store->connections().front());
    press(u"All integrations"_s);
    EXPECT_EQ(pane->selection(), IntegrationsSelection());
    EXPECT_TRUE(button(u"RSS feed"_s)->hasFocus());
}

TEST_F(IntegrationsPaneTest, comesBackToWhereTheCardsWereScrolledTo) {
    open();
    scroll->verticalScrollBar()->setValue(300);
    press(u"Ahrefs"_s);
    EXPECT_EQ(scroll->verticalScrollBar()->value(), 0);
    pane->goBack();
    EXPECT_EQ(scroll->verticalScrollBar()->value(), 300);
    turn();
    EXPECT_EQ(scroll->verticalScrollBar()->value(), 300);
}

TEST_F(IntegrationsPaneTest, endpointsThatTheKeyringKeepsBackAreTold) {
    const CustomAPIConfig endpoint{QUuid::createUuid(), u"Signups"_s, u"https://a.org"_s, {}, {}};
    const auto text = QString::fromUtf8(coding::json(std::vector{endpoint}));
    secrets.put(u"com.tavi.integrations"_s, {endpointsAccount(), text.toUtf8()});
    defaults.set(endpointsExistKey(), true);
    secrets.dismiss();
    open();
    const auto told = u"Your custom endpoints are in the keyring, which has not been opened."_s;
    EXPECT_TRUE(shows(told));
    store->loadCustomAPIs(); // as each refresh does
    settle();
    EXPECT_TRUE(shows(told)) << "nobody wants to be asked all the time";
    press(u"Open keyring"_s);
    settle();
    EXPECT_FALSE(shows(told));
    EXPECT_NE(button(u"Signups"_s), nullptr);
}

TEST_F(IntegrationsPaneTest, fortyEndpointsAreFortyWidgets) {
    open();
    const auto before = window.findChildren<QWidget *>().size();
    for (int count = 0; count < 40; ++count) {
        store->upsertCustomAPI(
            {QUuid::createUuid(), u"E%1"_s.arg(count), u"https://a.org"_s, {}, {}});
    }
    settle();
    EXPECT_LE(window.findChildren<QWidget *>().size(), before + 40);
    EXPECT_NE(button(u"E39"_s), nullptr);
}

TEST_F(IntegrationsPaneTest, everyCardCanBeLookedFor) {
    open();
    const auto entries = pane->searchEntries();
    ASSERT_THAT(entries, SizeIs(18));
    for (const SearchEntry &entry : entries) {
        ASSERT_NE(entry.target, nullptr);
        EXPECT_EQ(entry.target, button(entry.title)) << qPrintable(entry.title);
    }
    EXPECT_EQ(entries.front().detail, u"Revenue, MRR, customers"_s);
    showEndpoint();
    entries.front().show();
    turn();
    EXPECT_TRUE(entries.front().target->isVisible());
}

TEST_F(IntegrationsPaneTest, aSecondRemovalSettlesTheFirst) {
    const auto first = connect(u"stripe"_s, u"sk_1"_s).id;
    const auto second = connect(u"stripe"_s, u"sk_2"_s).id;
    open();
    showAccount(stored(first));
    press(u"Remove"_s);
    showAccount(stored(second));
    press(u"Remove"_s);
    settle();
    EXPECT_THAT(secrets.entries(), SizeIs(1));
    press(u"Undo"_s);
    settle();
    EXPECT_THAT(store->connections(), SizeIs(1));
    EXPECT_EQ(stored(second).id, second);
}

TEST_F(IntegrationsPaneTest, theEndOfThePaneSettlesARemoval) {
    const auto id = connect(u"stripe"_s, u"sk"_s).id;
    open();
    showAccount(stored(id));
    press(u"Remove"_s);
    delete pane;
    settle();
    EXPECT_THAT(secrets.entries(), IsEmpty());
}

} // namespace

} // namespace zeph::ui
