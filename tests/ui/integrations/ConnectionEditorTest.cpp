// SPDX-License-Identifier: MIT
#include "services/forms/AccountWords.h"
#include "ui/integrations/IntegrationsFixture.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QSpinBox>

using namespace Qt::StringLiterals;
using testing::Contains;
using testing::IsEmpty;
using testing::SizeIs;

namespace zeph::ui {

namespace {

const auto stripeKey = u"Read-only key (rk_live_… or sk_…)"_s;
const auto gitHubToken = u"Personal access token (optional)"_s;
const auto savedText = u"Saved — now on your wallpaper"_s;
const auto connectedText = u"Connected — showing on your wallpaper"_s;
const auto refusedText =
    u"The keyring stayed locked, so this works only until Tavi ends. Save again to keep it."_s;

class ConnectionEditorTest : public IntegrationsFixture {
protected:
    QString secretEntry(const IntegrationConnection &account, const QString &secret) const {
        return u"com.tavi.integrations "_s + secretAccount(account.id) + u'=' + secret;
    }
};

/// Every service that is offered.
class EveryServiceTest : public IntegrationsFixture,
                         public testing::WithParamInterface<const ServiceRow *> {};

std::vector<const ServiceRow *> offeredServices() {
    std::vector<const ServiceRow *> rows;
    for (const ServiceRow &row : serviceCatalogue()) {
        if (row.words) {
            rows.push_back(&row);
        }
    }
    return rows;
}

TEST_P(EveryServiceTest, isConnectedByItsFormAndComesToTheWallpaper) {
    const ServiceRow &row = *GetParam();
    const AccountWords words = accountWords(row.key);
    open();
    const auto account = addAccount(row.key);
    EXPECT_TRUE(shows(words.help));
    EXPECT_TRUE(shows(u"Connect this account to your wallpaper."_s));
    EXPECT_FALSE(button(u"Save & connect"_s)->isEnabled());

    type(u"Display name"_s, u"Mine"_s);
    if (row.value == Need::required) {
        EXPECT_FALSE(button(u"Save & connect"_s)->isEnabled());
        type(words.valueLabel, u"some value"_s);
    }
    if (row.secret == Need::required) {
        EXPECT_FALSE(button(u"Save & connect"_s)->isEnabled());
        type(words.keyLabel, u"k-123"_s);
    }
    EXPECT_TRUE(button(u"Save & connect"_s)->isEnabled());
    press(u"Save & connect"_s);
    settle();

    const auto saved = stored(account.id);
    EXPECT_EQ(saved.name, u"Mine"_s);
    EXPECT_TRUE(store->isReady(saved));
    EXPECT_EQ(secrets.entries().join(u' ').contains(u"k-123"_s), row.secret == Need::required);
    EXPECT_TRUE(preferences.hasChosenPlacement(row.widget.value()));
    EXPECT_TRUE(preferences.isOn(row.widget.value()));
    EXPECT_EQ(preferences.hasChosenSize(WidgetKind::rss), row.key == "rss"_L1);
    EXPECT_TRUE(shows(savedText));
    loop.advance(2.4);
    turn();
    EXPECT_TRUE(shows(savedText));
    loop.advance(0.2);
    turn();
    EXPECT_FALSE(shows(savedText));
    EXPECT_TRUE(shows(connectedText));
    EXPECT_NE(button(u"Save changes"_s), nullptr);
}

INSTANTIATE_TEST_SUITE_P(Services, EveryServiceTest, testing::ValuesIn(offeredServices()),
                         [](const auto &service) {
                             return std::string(
                                 service.param->key.data(),
                                 static_cast<std::size_t>(service.param->key.size()));
                         });

// Keys

TEST_F(ConnectionEditorTest, theKeyIsForgottenByTheFormOnceItIsKept) {
    open();
    const auto account = addAccount(u"stripe"_s);
    type(stripeKey, u"sk_live"_s);
    press(u"Save & connect"_s);
    EXPECT_EQ(field(stripeKey)->text(), u"sk_live"_s) << "the keyring may still refuse it";
    EXPECT_TRUE(field(stripeKey)->isReadOnly());
    EXPECT_TRUE(shows(u"Saving…"_s));
    settle();
    EXPECT_EQ(field(stripeKey)->text(), QString());
    EXPECT_FALSE(field(stripeKey)->isReadOnly());
    EXPECT_THAT(secrets.entries(), Contains(secretEntry(account, u"sk_live"_s)));
}

TEST_F(ConnectionEditorTest, aRefusedKeyringIsToldAndTheKeyStaysTyped) {
    open();
    addAccount(u"stripe"_s);
    secrets.answer(SecretOutcome::refused);
    type(stripeKey, u"sk_live"_s);
    press(u"Save & connect"_s);
    settle();
    EXPECT_TRUE(shows(refusedText));
    EXPECT_EQ(field(stripeKey)->text(), u"sk_live"_s);
    EXPECT_FALSE(shows(savedText));

    secrets.answer(SecretOutcome::done);
    press(u"Save changes"_s);
    EXPECT_FALSE(shows(refusedText));
    settle();
    EXPECT_TRUE(shows(savedText));
    EXPECT_EQ(field(stripeKey)->text(), QString());
    EXPECT_THAT(secrets.entries(), SizeIs(1));
}

TEST_F(ConnectionEditorTest, aKeyringWithoutAnAnswerIsTold) {
    open();
    addAccount(u"polar"_s);
    secrets.answer(SecretOutcome::unavailable);
    type(u"Polar access token"_s, u"polar_oat"_s);
    press(u"Save & connect"_s);
    settle();
    EXPECT_TRUE(shows(u"The keyring gave no answer, so this works only until Tavi ends. Save "
                      "again to keep it."_s));
}

TEST_F(ConnectionEditorTest, aRefusalIsToldElsewhereWhenTheFormIsGone) {
    open();
    addAccount(u"stripe"_s);
    secrets.answer(SecretOutcome::refused);
    type(stripeKey, u"sk_live"_s);
    press(u"Save & connect"_s);
    pane->goBack();
    turn();
    EXPECT_FALSE(shows(refusedText));
    settle();
    EXPECT_TRUE(shows(refusedText));
}

TEST_F(ConnectionEditorTest, aSecondPressWhileTheKeyringIsAskedDoesNothing) {
    open();
    addAccount(u"stripe"_s);
    type(stripeKey, u"sk_live"_s);
    secrets.takeCalls();
    press(u"Save & connect"_s);
    press(u"Save & connect"_s);
    settle();
    EXPECT_THAT(secrets.takeCalls().filter(u"add "_s), SizeIs(1));
}

TEST_F(ConnectionEditorTest, anEmptyKeyFieldKeepsTheStoredKey) {
    auto &account = connect(u"stripe"_s, u"sk_old"_s);
    const auto id = account.id;
    open();
    showAccount(stored(id));
    EXPECT_EQ(field(stripeKey)->text(), QString()) << "a key is never read back";
    type(u"Display name"_s, u"Main store"_s);
    secrets.takeCalls();
    press(u"Save changes"_s);
    settle();
    EXPECT_THAT(secrets.takeCalls(), IsEmpty());
    EXPECT_EQ(stored(id).name, u"Main store"_s);
    EXPECT_TRUE(shows(savedText));
}

TEST_F(ConnectionEditorTest, aKeyIsSaidNowhere) {
    open();
    addAccount(u"stripe"_s);
    type(stripeKey, u"sk_secret_7"_s);
    for (const QWidget *widget : window.findChildren<QWidget *>()) {
        const QString said = widget->toolTip() + widget->accessibleName() +
                             widget->accessibleDescription() + widget->whatsThis();
        EXPECT_FALSE(said.contains(u"sk_secret_7"_s));
    }
    EXPECT_FALSE(texts().join(u' ').contains(u"sk_secret_7"_s));
    EXPECT_EQ(field(stripeKey)->echoMode(), QLineEdit::Password);
}

// Placement

TEST_F(ConnectionEditorTest, aSecondAccountLeavesTheChosenPlacementAlone) {
    connect(u"reddit"_s, std::nullopt, u"brindle"_s);
    preferences.set(WidgetPlacement::off, WidgetKind::reddit);
    open();
    addAccount(u"reddit"_s);
    type(u"Username"_s, u"harlowe"_s);
    press(u"Save & connect"_s);
    settle();
    EXPECT_FALSE(preferences.isOn(WidgetKind::reddit));
}

TEST_F(ConnectionEditorTest, thePlacementCountsAtOnceAndFollowsOtherPanes) {
    connect(u"reddit"_s, std::nullopt, u"brindle"_s);
    preferences.set(WidgetPlacement::always, WidgetKind::reddit);
    open();
    showAccount(store->connections().front());
    QCheckBox *const placed = toggle(u"Show on wallpaper"_s);
    EXPECT_TRUE(placed->isChecked());
    QTest::mouseClick(placed, Qt::LeftButton, {}, placed->rect().center());
    EXPECT_FALSE(preferences.isOn(WidgetKind::reddit));
    preferences.set(WidgetPlacement::always, WidgetKind::reddit);
    turn();
    EXPECT_TRUE(placed->isChecked());
}

// Following the store

TEST_F(ConnectionEditorTest, tellsHowTheLastFetchWent) {
    const auto id = connect(u"stripe"_s, u"sk"_s).id;
    open();
    showAccount(stored(id));
    StripeStats stats;
    stats.connectionId = id;
    stats.error = u"Stripe error 401"_s;
    state.stripeStats = {stats};
    EXPECT_FALSE(shows(u"Stripe error 401"_s)) << "told within the change";
    turn();
    EXPECT_TRUE(shows(u"Stripe error 401"_s));
    stats.error.reset();
    stats.updated = Date{1};
    state.stripeStats = {stats};
    turn();
    EXPECT_FALSE(shows(u"Stripe error 401"_s));
    EXPECT_THAT(texts(), Contains(testing::Truly([](const QString &text) {
                    return text.startsWith(u"Connected · ");
                })));
}

TEST_F(ConnectionEditorTest, whatIsTypedAndWhereStaysWhenTheStoreChanges) {
    const auto id = connect(u"github"_s, std::nullopt, u"octo"_s).id;
    open();
    showAccount(stored(id));
    type(u"Display name"_s, u"My work"_s);
    field(u"Display name"_s)->setCursorPosition(2);
    auto changed = stored(id);
    changed.name = u"Elsewhere"_s;
    changed.enabled = false;
    changed.extra = u"cat"_s;
    store->updateConnection(changed);
    turn();
    EXPECT_EQ(field(u"Display name"_s)->text(), u"My work"_s);
    EXPECT_EQ(field(u"Display name"_s)->cursorPosition(), 2);
    EXPECT_TRUE(field(u"Display name"_s)->hasFocus());
    EXPECT_EQ(field(u"Username (required)"_s)->text(), u"cat"_s) << "nobody had typed there";
    EXPECT_FALSE(toggle(u"Active"_s)->isChecked());
}

TEST_F(ConnectionEditorTest, aPausedAccountIsSavedAsSuch) {
    const auto id = connect(u"stripe"_s, u"sk"_s).id;
    open();
    showAccount(stored(id));
    QTest::mouseClick(toggle(u"Active"_s), Qt::LeftButton, {},
                      toggle(u"Active"_s)->rect().center());
    EXPECT_TRUE(stored(id).enabled) << "not saved yet";
    press(u"Save changes"_s);
    EXPECT_FALSE(stored(id).enabled);
}

TEST_F(ConnectionEditorTest, enterInAFieldSaves) {
    open();
    const auto account = addAccount(u"hackernews"_s);
    type(u"Username"_s, u"quayside"_s);
    key(Qt::Key_Return);
    EXPECT_TRUE(store->isReady(stored(account.id)));
}

TEST_F(ConnectionEditorTest, gitHubAsksForATokenOnlyForTheGraph) {
    const auto id = connect(u"github"_s, std::nullopt, u"octo"_s).id;
    GitHubStats withoutToken;
    withoutToken.connectionId = id;
    withoutToken.hasToken = false;
    state.githubStats = {withoutToken};
    open();
    showAccount(stored(id));
    const auto note = u"The contribution grid needs a personal access token — GitHub only exposes "
                      "it to authenticated requests, so a username alone won't work. A token also "
                      "unlocks your private-repo stats."_s;
    EXPECT_FALSE(shows(note));
    EXPECT_FALSE(shows(u"Graph"_s));
    QCheckBox *const graph = toggle(u"Show my contribution graph on the wallpaper"_s);
    QTest::mouseClick(graph, Qt::LeftButton, {}, graph->rect().center());
    turn();
    EXPECT_TRUE(shows(note));
    EXPECT_TRUE(shows(u"Graph"_s));
    EXPECT_NE(button(u"Create a token (preset, no expiry) →"_s), nullptr);
    type(gitHubToken, u"ghp_1"_s);
    EXPECT_FALSE(shows(note));

    auto *const layouts = window.findChild<QComboBox *>();
    ASSERT_NE(layouts, nullptr);
    EXPECT_EQ(layouts->currentText(), u"Last year"_s);
    layouts->setFocus();
    QTest::keyClick(layouts, Qt::Key_Down);
    const QString chosen = layouts->currentText();
    QCheckBox *const stats = toggle(u"Show stats (stars, followers, PRs, repos)"_s);
    QTest::mouseClick(stats, Qt::LeftButton, {}, stats->rect().center());
    press(u"Save changes"_s);
    settle();
    EXPECT_EQ(chosen, u"Last 2 years (stacked)"_s);
    EXPECT_EQ(stored(id).contributionLayout, u"y2"_s);
    EXPECT_TRUE(stored(id).showContributionGraph);
    EXPECT_FALSE(stored(id).showStats);
    EXPECT_THAT(secrets.entries(), Contains(secretEntry(stored(id), u"ghp_1"_s)));
    EXPECT_FALSE(shows(note)) << "it is kept, though the last fetch was without it";
}

TEST_F(ConnectionEditorTest, gitHubAsksForATokenBeforeAnyFetchToo) {
    const auto paused = [this](const std::optional<QString> &token) {
        auto &account = connect(u"github"_s, token, u"octo"_s);
        account.showContributionGraph = true;
        account.enabled = false; // so that no fetch comes
        return account;
    };
    const auto without = paused(std::nullopt);
    const auto with = paused(u"ghp_1"_s);
    const auto unknown = paused(std::nullopt);
    defaults.remove(secretKeptKey(unknown.id)); // as earlier versions left it
    const auto note = u"The contribution grid needs a personal access token — GitHub only exposes "
                      "it to authenticated requests, so a username alone won't work. A token also "
                      "unlocks your private-repo stats."_s;
    open();
    showAccount(without);
    EXPECT_TRUE(shows(note));
    for (const auto &account : {with, unknown}) {
        showAccount(account);
        EXPECT_FALSE(shows(note));
    }
}

TEST_F(ConnectionEditorTest, aGraphThatIsChosenIsSavedThoughTheAccountChangedMeanwhile) {
    auto &account = connect(u"github"_s, std::nullopt, u"octo"_s);
    account.showContributionGraph = true;
    open();
    showAccount(account);
    auto *const layouts = window.findChild<QComboBox *>();
    ASSERT_NE(layouts, nullptr);
    layouts->setFocus();
    QTest::keyClick(layouts, Qt::Key_Down);
    account.name = u"Work"_s;
    store->updateConnection(account);
    settle();
    EXPECT_EQ(layouts->currentText(), u"Last 2 years (stacked)"_s);
    press(u"Save changes"_s);
    settle();
    EXPECT_EQ(stored(account.id).contributionLayout, u"y2"_s);
    EXPECT_EQ(stored(account.id).name, u"Work"_s);
}

TEST_F(ConnectionEditorTest, aGraphOfALaterVersionStaysUntilAnotherIsChosen) {
    auto &account = connect(u"github"_s, std::nullopt, u"octo"_s);
    account.showContributionGraph = true;
    account.contributionLayout = u"y9"_s;
    open();
    showAccount(account);
    type(u"Display name"_s, u"Mine"_s);
    press(u"Save changes"_s);
    settle();
    EXPECT_EQ(stored(account.id).name, u"Mine"_s);
    EXPECT_EQ(stored(account.id).contributionLayout, u"y9"_s);
}

TEST_F(ConnectionEditorTest, gitHubNeedsAUserNameAndSpeaksOfATokenNotOfAKey) {
    open();
    addAccount(u"github"_s);
    type(gitHubToken, u"ghp_1"_s);
    EXPECT_FALSE(button(u"Save & connect"_s)->isEnabled());
    EXPECT_NE(button(u"Where to find your token"_s), nullptr);
    EXPECT_EQ(button(u"Where to find your key"_s), nullptr);
}

TEST_F(ConnectionEditorTest, ahrefsCanHideItsLine) {
    const auto id = connect(u"ahrefs"_s, std::nullopt, u"example.com"_s).id;
    open();
    showAccount(stored(id));
    QCheckBox *const line = toggle(u"Show “Domain Rating by Ahrefs” on wallpaper"_s);
    EXPECT_TRUE(line->isChecked());
    QTest::mouseClick(line, Qt::LeftButton, {}, line->rect().center());
    press(u"Save changes"_s);
    EXPECT_FALSE(stored(id).showAhrefsAttribution);
}

TEST_F(ConnectionEditorTest, aFeedShowsOneToFiveItems) {
    const auto id = connect(u"rss"_s, std::nullopt, u"https://a.org/feed"_s).id;
    open();
    showAccount(stored(id));
    EXPECT_TRUE(shows(u"Show latest 3 items"_s));
    auto *const stepper = window.findChild<QSpinBox *>();
    ASSERT_NE(stepper, nullptr);
    stepper->stepBy(-5);
    EXPECT_TRUE(shows(u"Show latest 1 item"_s));
    stepper->stepBy(9);
    EXPECT_TRUE(shows(u"Show latest 5 items"_s));
    EXPECT_EQ(stored(id).feedCount, std::nullopt) << "not saved yet";
    press(u"Save changes"_s);
    EXPECT_EQ(stored(id).feedCount, 5);
}

TEST_F(ConnectionEditorTest, aFeedsCountThatNobodyChoseStaysUnsaid) {
    const auto id = connect(u"rss"_s, std::nullopt, u"https://a.org/feed"_s).id;
    open();
    showAccount(stored(id));
    press(u"Save changes"_s);
    EXPECT_EQ(stored(id).feedCount, std::nullopt);
}

TEST_F(ConnectionEditorTest, someServicesSayWhereTheirValuesAreFound) {
    open();
    addAccount(u"coingecko"_s);
    EXPECT_NE(button(u"Find your coin id"_s), nullptr);
    addAccount(u"currency"_s);
    EXPECT_NE(button(u"Supported currency codes"_s), nullptr);
}

// By keyboard

TEST_F(ConnectionEditorTest, tabGoesThroughTheFormFromTopToBottom) {
    const auto id = connect(u"github"_s, u"ghp"_s, u"octo"_s).id;
    open();
    showAccount(stored(id));
    EXPECT_TRUE(field(u"Display name"_s)->hasFocus());
    const QStringList names = walk();
    const QStringList expected{u"Display name"_s,
                               u"Username (required)"_s,
                               gitHubToken,
                               u"Where to find your token"_s,
                               u"Show stats (stars, followers, PRs, repos)"_s,
                               u"Show my contribution graph on the wallpaper"_s,
                               u"Active"_s,
                               u"Show on wallpaper"_s,
                               u"Remove"_s,
                               u"Save changes"_s,
                               u"All integrations"_s};
    QStringList found;
    for (const QString &name : names) {
        if (expected.contains(name)) {
            found << name;
        }
        EXPECT_NE(name, QString()) << qPrintable(names.join(u", "_s));
    }
    EXPECT_EQ(found, expected) << qPrintable(names.join(u", "_s));
}

} // namespace

} // namespace zeph::ui
