// SPDX-License-Identifier: MIT
#pragma once

#include "core/AppState.h"
#include "core/IntegrationRefresh.h"
#include "core/NotificationCenter.h"
#include "integrations/accounts/AccountCoding.h"
#include "integrations/accounts/AccountKeys.h"
#include "integrations/accounts/IntegrationsStore.h"
#include "integrations/accounts/Keychain.h"
#include "presentation/preferences/PreferencesStore.h"
#include "support/FakeFormatters.h"
#include "support/FakeSecureStore.h"
#include "support/FakeUserDefaults.h"
#include "support/ManualRunLoop.h"
#include "support/ManualTaskExecutor.h"
#include "support/QtPrinters.h"

#include <gmock/gmock.h>

namespace zeph {

/// A record that `fill` has put its values in.
template <typename Record, typename Fill>
Record recordWith(Fill fill) {
    Record made;
    fill(made);
    return made;
}

/// A refresh over services that write down how they were asked, as "service arguments".
class RefreshFixture : public testing::Test {
protected:
    RefreshFixture() {
        for (const char *key : {"tavi.keychain.serviceMigrated", "zeph.integrations.v2",
                                "zeph.integrations.removedCursor"}) {
            defaults.set(QString::fromLatin1(key), true);
        }
    }

    /// Makes the refresh; accounts and secrets are those given so far.
    void launch() {
        defaults.set(QStringLiteral("zeph.integrations.connections"), coding::json(accounts));
        refresh.reset();
        store =
            std::make_unique<IntegrationsStore>(defaults, keychain, notifications, loop, executor);
        executor.runAll();
        loop.drain();
        refresh = std::make_unique<IntegrationRefresh>(
            RefreshContext{state, *store, keychain, preferences, executor, loop, services()});
    }

    /// An account that was connected, with a secret unless that is absent.
    IntegrationConnection &connect(const QString &provider, const std::optional<QString> &secret,
                                   const std::optional<QString> &extra = std::nullopt) {
        auto &account = addUnconnected(provider, extra);
        defaults.set(configuredKey(account.id), true);
        if (secret) {
            keychain.set(secret, secretAccount(account.id));
        }
        return account;
    }

    IntegrationConnection &addUnconnected(const QString &provider,
                                          const std::optional<QString> &extra = std::nullopt) {
        IntegrationConnection account{QUuid::createUuid(), provider,
                                      QStringLiteral("My ") + provider};
        account.extra = extra;
        accounts.push_back(account);
        return accounts.back();
    }

    /// A whole run: starts it, runs its tasks and assigns their results.
    void run() {
        refresh->fetchIntegrations();
        executor.runAll();
        loop.drain();
    }

    void note(const QString &call) {
        calls << call;
        if (onCall) {
            onCall(call);
        }
    }

    static QString text(const std::optional<QString> &token) {
        return token ? u'"' + *token + u'"' : QStringLiteral("none");
    }

    auto simple(const char *name) {
        return [this, name = QString::fromLatin1(name)](const QString &argument) {
            note(name + u' ' + argument);
            return recordWith<SimpleIntegrationStats>([&](SimpleIntegrationStats &made) {
                made.provider = name;
                made.headline = argument;
            });
        };
    }

    auto revenue(const char *name) {
        return [this, name = QString::fromLatin1(name)](const QString &key) {
            note(name + u' ' + key);
            return recordWith<RevenueStats>([&](RevenueStats &made) { made.provider = name; });
        };
    }

    IntegrationServices services() {
        IntegrationServices asked;
        asked.stripe = [this](const QString &key) {
            note(QStringLiteral("stripe ") + key);
            return recordWith<StripeStats>(
                [&](StripeStats &made) { made.todayRevenueCents = 100; });
        };
        asked.github = [this](const QString &username, const std::optional<QString> &token) {
            note(QStringLiteral("github ") + username + u' ' + text(token));
            return recordWith<GitHubStats>([&](GitHubStats &made) { made.username = username; });
        };
        asked.githubContributions = [this](const QString &username,
                                           const std::optional<QString> &token,
                                           ContributionLayout layout) {
            note(QStringLiteral("contributions %1 %2 %3")
                     .arg(username, text(token), rawValue(layout)));
            return std::optional(ContributionGraph{.rows = {}, .grandTotal = 12});
        };
        asked.chartMogul = revenue("chartmogul");
        asked.lemonSqueezy = revenue("lemonsqueezy");
        asked.dodo = [this](const QString &key, const QString &brandID) {
            note(QStringLiteral("dodo %1 \"%2\"").arg(key, brandID));
            return recordWith<RevenueStats>(
                [&](RevenueStats &made) { made.provider = QStringLiteral("dodo"); });
        };
        asked.plausible = [this](const QString &key, const QString &site) {
            note(QStringLiteral("plausible ") + key + u' ' + site);
            return recordWith<AnalyticsStats>([&](AnalyticsStats &made) { made.site = site; });
        };
        asked.trustMRR = [this](const QString &key, const QString &slug) {
            note(QStringLiteral("trustmrr ") + key + u' ' + slug);
            return recordWith<SimpleIntegrationStats>(
                [&](SimpleIntegrationStats &made) { made.provider = QStringLiteral("trustmrr"); });
        };
        asked.rss = [this](const QString &url, qint64 count) {
            note(QStringLiteral("rss %1 %2").arg(url).arg(count));
            return recordWith<SimpleIntegrationStats>(
                [&](SimpleIntegrationStats &made) { made.provider = QStringLiteral("rss"); });
        };
        asked.ahrefs = simple("ahrefs");
        asked.coinGecko = simple("coingecko");
        asked.hackerNews = simple("hackernews");
        asked.reddit = simple("reddit");
        asked.productHunt = simple("producthunt");
        asked.bluesky = simple("bluesky");
        asked.currency = simple("currency");
        asked.vercel = simple("vercel");
        asked.netlify = simple("netlify");
        asked.gumroad = simple("gumroad");
        asked.polar = simple("polar");
        asked.customAPI = [this](const CustomAPIConfig &config) {
            note(QStringLiteral("custom ") + config.urlString);
            return recordWith<CustomAPIResult>([&](CustomAPIResult &made) {
                made.id = config.id;
                made.name = config.name;
            });
        };
        asked.quote = [this] {
            note(QStringLiteral("quote"));
            return quote;
        };
        return asked;
    }

    FakeUserDefaults defaults;
    FakeSecureStore secrets;
    NotificationCenter notifications;
    FakeFormatters formatters;
    ManualClock clock;
    ManualRunLoop loop{clock};
    ManualTaskExecutor executor;
    AppState state{Date{0}};
    Keychain keychain{secrets, defaults};
    PreferencesStore preferences{defaults, notifications, formatters};
    std::vector<IntegrationConnection> accounts;
    std::unique_ptr<IntegrationsStore> store;
    std::unique_ptr<IntegrationRefresh> refresh;
    QStringList calls;
    std::function<void(const QString &call)> onCall;
    std::optional<QuoteInfo> quote = QuoteInfo{QStringLiteral("Be."), QStringLiteral("A")};
};

} // namespace zeph
