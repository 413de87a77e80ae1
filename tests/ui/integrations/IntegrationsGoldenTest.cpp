// SPDX-License-Identifier: MIT
#include "adapters/locale/IcuFormatters.h"
#include "golden/GoldenImage.h"
#include "ui/controls/OverlayBar.h"
#include "ui/integrations/IntegrationsFixture.h"

#include <QAbstractButton>
#include <QListWidget>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

namespace zeph::ui {

namespace {

constexpr int paneWidth = 672;

/// Some accounts at some services, as they stand after a while.
class IntegrationsGoldenTest : public IntegrationsFixture {
protected:
    IntegrationsGoldenTest() {
        look.setMotion(false);
        QApplication::setCursorFlashTime(0);
        wording = &numbers;
    }

    /// The whole of what is shown, however high.
    QImage picture(Appearance appearance) {
        look.setAppearance(appearance);
        settle();
        const QWidget *const content = scroll->widget();
        window.resize(paneWidth, content->heightForWidth(paneWidth) > 0
                                     ? content->heightForWidth(paneWidth)
                                     : content->sizeHint().height());
        turn();
        hideScrollBar();
        return window.grab().toImage();
    }

    /// It goes by itself, some time after the last scrolling.
    void hideScrollBar() {
        for (QWidget *widget : window.findChildren<QWidget *>()) {
            if (dynamic_cast<OverlayBar *>(widget) != nullptr) {
                widget->hide();
            }
        }
    }

    testing::AssertionResult matches(const QString &name, Appearance appearance) {
        return matchesGolden(picture(appearance), u"ui/integrations-"_s + name);
    }

    void addStripeAccounts() {
        auto &shop = connect(u"stripe"_s, u"sk"_s);
        shop.name = u"Main store"_s;
        StripeStats good;
        good.connectionId = shop.id;
        good.todayRevenueCents = 41250;
        good.mrrCents = 1842000;
        good.updated = Date{1};
        auto &second = connect(u"stripe"_s, u"sk"_s);
        second.name = u"Stripe 2"_s;
        StripeStats bad;
        bad.connectionId = second.id;
        bad.error = u"Stripe error 401"_s;
        auto &old = connect(u"stripe"_s, u"sk"_s);
        old.name = u"Old shop"_s;
        old.enabled = false;
        state.stripeStats = {good, bad};
    }

    void addGitHubAccount() {
        auto &account = connect(u"github"_s, std::nullopt, u"octavia-lind"_s);
        account.name = u"GitHub"_s;
        account.showContributionGraph = true;
        GitHubStats stats;
        stats.connectionId = account.id;
        stats.totalStars = 1204;
        stats.followers = 318;
        stats.openPRs = 4;
        stats.updated = Date{1};
        stats.hasToken = false;
        state.githubStats = {stats};
    }

    void addEndpoint() {
        endpoint = {QUuid::createUuid(),
                    u"Signups"_s,
                    u"https://api.example.org/v2/signups/summary"_s,
                    {{QUuid::createUuid(), u"Authorization"_s, u"Bearer sk_live_1234"_s},
                     {QUuid::createUuid(), u"X-Team"_s, u"northwind"_s}},
                    {{QUuid::createUuid(), u"Signups today"_s, u"data.today"_s},
                     {QUuid::createUuid(), u"Total Users"_s, u"data.total_users"_s}}};
        store->upsertCustomAPI(endpoint);
        settle();
    }

    IcuFormatters numbers{u"en_US"_s, u"Europe/Berlin"_s};
    CustomAPIConfig endpoint;
};

TEST_F(IntegrationsGoldenTest, cards) {
    addStripeAccounts();
    addGitHubAccount();
    connect(u"rss"_s, std::nullopt, u"https://blog.example.org/feed.xml"_s);
    connect(u"currency"_s, std::nullopt, u"USD/INR"_s);
    open();
    addEndpoint();
    EXPECT_TRUE(matches(u"cards-dark"_s, Appearance::dark));
    EXPECT_TRUE(matches(u"cards-light"_s, Appearance::light));
}

TEST_F(IntegrationsGoldenTest, accounts) {
    addStripeAccounts();
    open();
    pane->select({.page = IntegrationsSelection::Page::accounts, .provider = u"stripe"_s});
    EXPECT_TRUE(matches(u"accounts-dark"_s, Appearance::dark));
    EXPECT_TRUE(matches(u"accounts-light"_s, Appearance::light));
}

TEST_F(IntegrationsGoldenTest, noAccounts) {
    open();
    pane->select({.page = IntegrationsSelection::Page::accounts, .provider = u"chartmogul"_s});
    EXPECT_TRUE(matches(u"no-accounts-light"_s, Appearance::light));
}

TEST_F(IntegrationsGoldenTest, newAccount) {
    open();
    addAccount(u"stripe"_s);
    type(u"Read-only key (rk_live_… or sk_…)"_s, u"rk_live_51Hx9wJqT2mB4z"_s);
    EXPECT_TRUE(matches(u"new-account-dark"_s, Appearance::dark));
}

TEST_F(IntegrationsGoldenTest, readyAccount) {
    addStripeAccounts();
    open();
    showAccount(store->connections().front());
    window.setFocus();
    EXPECT_TRUE(matches(u"ready-account-dark"_s, Appearance::dark));
    EXPECT_TRUE(matches(u"ready-account-light"_s, Appearance::light));
}

TEST_F(IntegrationsGoldenTest, refusedKeyring) {
    open();
    addAccount(u"dodo"_s);
    secrets.answer(SecretOutcome::refused);
    type(u"Dodo Payments API key"_s, u"dodo_1234"_s);
    press(u"Save & connect"_s);
    EXPECT_TRUE(matches(u"refused-keyring-dark"_s, Appearance::dark));
}

TEST_F(IntegrationsGoldenTest, removedAccount) {
    addStripeAccounts();
    open();
    showAccount(store->connections().front());
    press(u"Remove"_s);
    EXPECT_TRUE(matches(u"removed-account-dark"_s, Appearance::dark));
}

TEST_F(IntegrationsGoldenTest, gitHubGraph) {
    addGitHubAccount();
    open();
    showAccount(store->connections().front());
    press(u"Save changes"_s);
    EXPECT_TRUE(matches(u"github-graph-dark"_s, Appearance::dark));
}

TEST_F(IntegrationsGoldenTest, feed) {
    connect(u"rss"_s, std::nullopt, u"https://blog.example.org/feed.xml"_s).name =
        u"Harbour notes"_s;
    open();
    showAccount(store->connections().front());
    EXPECT_TRUE(matches(u"feed-dark"_s, Appearance::dark));
}

TEST_F(IntegrationsGoldenTest, endpointImport) {
    open();
    showEndpoint();
    press(u"Import from cURL"_s);
    window.findChild<QPlainTextEdit *>()->setPlainText(
        u"curl --request GET \\\n  --url https://api.example.org/v2/signups/summary \\\n"
        "  --header 'Authorization: Bearer sk_live_…' \\\n  --header 'X-Team: northwind'"_s);
    EXPECT_TRUE(matches(u"endpoint-import-dark"_s, Appearance::dark));
}

TEST_F(IntegrationsGoldenTest, endpointTest) {
    listing.leaves = {
        {u"data.active"_s, u"yes"_s},          {u"data.generated_at"_s, u"2026-05-14T08:24:00Z"_s},
        {u"data.plans.0.name"_s, u"Studio"_s}, {u"data.plans.0.seats"_s, u"318"_s},
        {u"data.rate"_s, u"0.87"_s},           {u"data.today"_s, u"42"_s},
        {u"data.total_users"_s, u"18402"_s}};
    open();
    addEndpoint();
    showEndpoint(endpoint.id);
    press(u"Run test call"_s);
    settle();
    list()->setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(matches(u"endpoint-test-dark"_s, Appearance::dark));
    EXPECT_TRUE(matches(u"endpoint-test-light"_s, Appearance::light));
}

TEST_F(IntegrationsGoldenTest, quote) {
    open();
    press(u"Quote of the Day"_s);
    EXPECT_TRUE(matches(u"quote-light"_s, Appearance::light));
}

} // namespace

} // namespace zeph::ui
