// SPDX-License-Identifier: MIT
#pragma once

#include "base/Background.h"
#include "base/NotificationCenter.h"
#include "model/AppState.h"
#include "services/accounts/AccountCoding.h"
#include "services/accounts/AccountKeys.h"
#include "services/accounts/IntegrationsStore.h"
#include "services/accounts/Keychain.h"
#include "services/accounts/RemoveForGood.h"
#include "services/catalogue/ServiceCatalogue.h"
#include "services/refresh/IntegrationRefresh.h"
#include "settings/PreferencesStore.h"
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
            RefreshContext{state, *store, keychain, preferences, background, services()});
    }

    /// An account that was connected, with a secret unless that is absent.
    IntegrationConnection &connect(const QString &provider, const std::optional<QString> &secret,
                                   const std::optional<QString> &extra = std::nullopt) {
        auto &account = addUnconnected(provider, extra);
        defaults.set(configuredKey(account.id), true);
        if (secret) {
            keychain.set(secret, secretAccount(account.id));
        }
        defaults.set(secretKeptKey(account.id), secret.has_value());
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

    /// Writes down what the service of `row` is asked with and answers with a record that tells it.
    AccountRecord answer(const ServiceRow &row, const AccountQuestion &question) {
        const QString key = question.key.value_or(QString());
        switch (row.family.value()) {
        case AccountFamily::stripe:
            note(row.key + u' ' + key);
            return recordWith<StripeStats>([](StripeStats &made) { made.todayRevenueCents = 100; });
        case AccountFamily::github:
            return gitHub(question);
        case AccountFamily::revenue:
            note(row.value == Need::none
                     ? row.key + u' ' + key
                     : QStringLiteral("%1 %2 \"%3\"").arg(row.key, key, question.value));
            return recordWith<RevenueStats>([&](RevenueStats &made) { made.provider = row.key; });
        case AccountFamily::analytics:
            note(row.key + u' ' + key + u' ' + question.value);
            return recordWith<AnalyticsStats>(
                [&](AnalyticsStats &made) { made.site = question.value; });
        case AccountFamily::simple:
            break;
        }
        QStringList words{row.key};
        words += row.secret == Need::none ? QStringList() : QStringList(key);
        words += row.value == Need::none ? QStringList() : QStringList(question.value);
        words += row.key == QLatin1String("rss") ? QStringList(QString::number(question.itemCount))
                                                 : QStringList();
        note(words.join(u' '));
        return recordWith<SimpleIntegrationStats>([&](SimpleIntegrationStats &made) {
            made.provider = row.key;
            made.headline = words.at(1);
        });
    }

    AccountRecord gitHub(const AccountQuestion &question) {
        note(QStringLiteral("github ") + question.value + u' ' + text(question.key));
        auto made =
            recordWith<GitHubStats>([&](GitHubStats &stats) { stats.username = question.value; });
        if (question.graph) {
            note(QStringLiteral("contributions %1 %2 %3")
                     .arg(question.value, text(question.key), rawValue(*question.graph)));
            made.contributions = ContributionGraph{.rows = {}, .grandTotal = 12};
        }
        return made;
    }

    IntegrationServices services() {
        IntegrationServices asked;
        for (const ServiceRow &row : serviceCatalogue()) {
            asked.accounts.insert(row.key, [this, &row](const AccountQuestion &question) {
                return answer(row, question);
            });
        }
        asked.customAPI = [this](const CustomAPIConfig &config) {
            note(QStringLiteral("custom ") + config.urlString);
            return recordWith<CustomAPIResult>([&](CustomAPIResult &made) {
                made.id = config.id;
                made.name = config.name;
            });
        };
        asked.listEndpoint = [this](const CustomAPIConfig &config) {
            note(QStringLiteral("list ") + config.urlString);
            return EndpointListing{.leaves = {{QStringLiteral("a.b"), config.name}}, .error = {}};
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
    Background background = Background::over(executor, loop);
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
