// SPDX-License-Identifier: MIT
#pragma once

#include "base/NotificationCenter.h"
#include "services/accounts/AccountCoding.h"
#include "services/accounts/AccountKeys.h"
#include "services/accounts/IntegrationsStore.h"
#include "services/accounts/Keychain.h"
#include "services/accounts/RemoveForGood.h"
#include "support/FakeSecureStore.h"
#include "support/FakeUserDefaults.h"
#include "support/ManualRunLoop.h"
#include "support/ManualTaskExecutor.h"
#include "support/QtPrinters.h"

#include <gmock/gmock.h>

namespace zeph {

/// Settings of a program that may end in the middle of its work: from then on nothing is written.
class EndingDefaults : public FakeUserDefaults {
public:
    void set(const QString &key, const DefaultsValue &value) override {
        if (m_writesLeft-- > 0) {
            FakeUserDefaults::set(key, value);
        }
    }
    void remove(const QString &key) override {
        if (m_writesLeft-- > 0) {
            FakeUserDefaults::remove(key);
        }
    }

    void endAfter(int count) { m_writesLeft = count; }
    void beginAnew() { m_writesLeft = manyWrites; }
    bool hasEnded() const { return m_writesLeft < 0; }

private:
    static constexpr int manyWrites = 1'000'000;

    std::atomic<int> m_writesLeft = manyWrites;
};

/// A store of accounts on a machine whose keychain was migrated long ago.
class StoreFixture : public testing::Test {
protected:
    StoreFixture() { defaults.set(QStringLiteral("tavi.keychain.serviceMigrated"), true); }

    /// Starts the program anew: same settings, same secrets, nothing remembered.
    void launch() {
        store.reset();
        keychain = std::make_unique<Keychain>(secrets, defaults);
        store =
            std::make_unique<IntegrationsStore>(defaults, *keychain, notifications, loop, executor);
        changes = store->objectWillChange.subscribe([this] { ++willChanges; });
    }

    /// Starts it and lets everything that follows from it happen.
    void launchAndSettle() {
        launch();
        settle();
        secrets.takeCalls();
        posts = 0;
        willChanges = 0;
    }

    void settle() {
        do {
            executor.runAll();
            loop.drain();
        } while (executor.waiting() > 0);
    }

    /// Ends the program in good order when the secure store is called for the `last`th time from
    /// now, as while it asks for a password: from then on nothing is available.
    /// `hasEnded` tells whether it came to that.
    void endAtCall(int last) {
        hasEnded = false;
        secrets.setHook([this, last, calls = 0](const QString &) mutable {
            if (calls++ == last) {
                hasEnded = true;
                store->finish(std::chrono::milliseconds(0));
                secrets.answer(SecretOutcome::unavailable);
            }
        });
    }

    /// Has the secure store end its `first`th call from now like this, and those that
    /// follow if `andFollowing`; `hasEnded` tells whether it came to that.
    void answerAtCall(int first, SecretOutcome outcome, bool andFollowing) {
        hasEnded = false;
        secrets.setHook([=, this, calls = 0](const QString &) mutable {
            const bool isDue = andFollowing ? calls >= first : calls == first;
            ++calls;
            hasEnded = hasEnded || isDue;
            secrets.answer(isDue ? outcome : SecretOutcome::done);
        });
    }

    /// Starts the program anew after such an end, and lets everything happen.
    void launchAfterEnd() {
        secrets.setHook({});
        secrets.answer(SecretOutcome::done);
        executor.forgetAll();
        launch();
        settle();
    }

    void stored(const std::vector<IntegrationConnection> &connections) {
        defaults.set(QStringLiteral("zeph.integrations.connections"), coding::json(connections));
    }

    /// The stored accounts; fails the test when there are none that can be read.
    std::vector<IntegrationConnection> storedConnections() const {
        const auto json = defaults.get<QByteArray>(QStringLiteral("zeph.integrations.connections"));
        const auto read = json ? coding::connections(*json) : std::nullopt;
        EXPECT_TRUE(read) << "no list of accounts is stored";
        return read.value_or(std::vector<IntegrationConnection>());
    }

    IntegrationConnection add(const QString &provider,
                              const std::optional<QString> &extra = std::nullopt) {
        return store->addConnection(provider, std::nullopt, extra);
    }

    /// The call of the secure store for the account's secret under the present service.
    static QString call(const char *operation, const QUuid &id) {
        return QLatin1StringView(operation) + QStringLiteral(" com.tavi.integrations ") +
               secretAccount(id);
    }

    /// The same under the earlier service.
    static QString legacyCall(const char *operation, const QUuid &id) {
        return QLatin1StringView(operation) + QStringLiteral(" com.zeph.integrations ") +
               secretAccount(id);
    }

    EndingDefaults defaults;
    FakeSecureStore secrets;
    NotificationCenter notifications;
    ManualClock clock;
    ManualRunLoop loop{clock};
    ManualTaskExecutor executor;
    std::unique_ptr<Keychain> keychain;
    std::unique_ptr<IntegrationsStore> store;
    int posts = 0;
    int willChanges = 0;
    bool hasEnded = false;

private:
    Subscription changes;
    Subscription observation =
        notifications.observe(notifications::zephIntegrationsChanged, [this] { ++posts; });
};

} // namespace zeph
