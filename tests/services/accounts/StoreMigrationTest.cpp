// SPDX-License-Identifier: MIT
#include "services/accounts/PendingSecrets.h"
#include "services/accounts/StoreFixture.h"

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAre;

namespace zeph {

namespace {

const auto migratedKey = u"zeph.integrations.v2"_s;
const auto cursorKey = u"zeph.integrations.removedCursor"_s;

class StoreMigrationTest : public StoreFixture {
protected:
    void setting(const QString &name, const DefaultsValue &value) {
        defaults.set(u"zeph.integrations."_s + name, value);
    }
    void legacySecret(const QString &account, const QByteArray &secret) {
        secrets.put(u"com.tavi.integrations"_s, {account, secret});
    }
    void earlierVersionWithTwoKeys() {
        for (const auto &name : {u"v2"_s, u"connections"_s, u"pendingSecrets"_s}) {
            defaults.remove(u"zeph.integrations."_s + name);
        }
        if (store) {
            for (const auto &connection : store->connections()) {
                secrets.remove(u"com.tavi.integrations"_s, secretAccount(connection.id));
            }
        }
        setting(u"stripe.configured"_s, true);
        setting(u"github.username"_s, u"octo"_s);
        setting(u"github.hasToken"_s, true);
        legacySecret(u"stripe"_s, "sk");
        legacySecret(u"github"_s, "ghp");
    }
    void expectBothCarriedOver() {
        ASSERT_THAT(store->connections(), SizeIs(2));
        EXPECT_EQ(secret(store->connections()[0]), u"sk"_s);
        EXPECT_EQ(secret(store->connections()[1]), u"ghp"_s);
        EXPECT_TRUE(store->isReady(store->connections()[0]));
        EXPECT_EQ(secrets.entries().size(), 2);
        EXPECT_EQ(defaults.value(u"zeph.integrations.pendingSecrets"_s), std::nullopt);
    }
    void launchAndWait() {
        launch();
        settle();
    }
    /// The only account; fails the test when there are none or several.
    IntegrationConnection only() const {
        EXPECT_THAT(store->connections(), SizeIs(1));
        return store->connections().empty() ? IntegrationConnection() : store->connections()[0];
    }
    std::optional<QString> secret(const IntegrationConnection &connection) {
        return Keychain(secrets, defaults).get(secretAccount(connection.id)).value;
    }
};

TEST_F(StoreMigrationTest, withoutOldSettingsAnEmptyListIsSavedAndTold) {
    launchAndWait();
    EXPECT_THAT(storedConnections(), IsEmpty());
    EXPECT_TRUE(defaults.boolean(migratedKey));
    EXPECT_EQ(posts, 1);
}

TEST_F(StoreMigrationTest, aListThatIsThereSetsTheFlagAndChangesNothing) {
    const IntegrationConnection there{QUuid::createUuid(), u"rss"_s, u"n"_s};
    stored({there});
    defaults.set(cursorKey, true);
    setting(u"stripe.configured"_s, true);
    const int writes = defaults.writes;
    launchAndWait();
    EXPECT_THAT(store->connections(), ElementsAre(there));
    EXPECT_TRUE(defaults.boolean(migratedKey));
    EXPECT_EQ(defaults.writes, writes + 1);
    EXPECT_EQ(posts, 0);
    EXPECT_THAT(secrets.takeCalls(), IsEmpty());
}

TEST_F(StoreMigrationTest, stripeIsCarriedOverWithItsKey) {
    setting(u"stripe.configured"_s, true);
    setting(u"stripe.enabled"_s, true);
    legacySecret(u"stripe"_s, "sk");
    launchAndWait();
    const auto made = only();
    EXPECT_EQ(made, (IntegrationConnection{made.id, u"stripe"_s, u"Stripe"_s}));
    EXPECT_THAT(secrets.takeCalls(),
                ElementsAre(u"copy com.tavi.integrations stripe"_s, call("copy", made.id),
                            legacyCall("copy", made.id), call("add", made.id),
                            legacyCall("remove", made.id), u"remove com.tavi.integrations stripe"_s,
                            u"remove com.zeph.integrations stripe"_s));
    EXPECT_EQ(secret(made), u"sk"_s);
    EXPECT_EQ(secrets.entries().size(), 1);
    EXPECT_TRUE(store->isReady(made));
    EXPECT_THAT(storedConnections(), ElementsAre(made));
    EXPECT_EQ(posts, 2) << "when it appears, and when its key is there";
}

TEST_F(StoreMigrationTest, stripeIsCarriedOverWithEitherOfItsSettings) {
    for (const auto &[configured, enabled] :
         std::vector<std::pair<bool, bool>>{{true, false}, {false, true}}) {
        defaults.remove(migratedKey);
        defaults.remove(u"zeph.integrations.connections"_s);
        setting(u"stripe.configured"_s, configured);
        setting(u"stripe.enabled"_s, enabled);
        launchAndWait();
        EXPECT_EQ(only().enabled, enabled);
    }
}

TEST_F(StoreMigrationTest, aMissingKeyMakesAnAccountWithoutItsFlag) {
    setting(u"stripe.configured"_s, true);
    launchAndWait();
    EXPECT_FALSE(store->hasSecret(only().id));
    EXPECT_EQ(defaults.value(configuredKey(only().id)), std::nullopt);
    EXPECT_THAT(secrets.takeCalls(),
                ElementsAre(u"copy com.tavi.integrations stripe"_s,
                            u"copy com.zeph.integrations stripe"_s, call("copy", only().id),
                            legacyCall("copy", only().id)));
}

TEST_F(StoreMigrationTest, gitHubIsCarriedOverByItsUserNameAsStored) {
    setting(u"github.username"_s, u" octo "_s);
    setting(u"github.enabled"_s, true);
    launchAndWait();
    const auto made = only();
    EXPECT_EQ(made, (IntegrationConnection{made.id, u"github"_s, u"GitHub"_s, true, u" octo "_s}));
    EXPECT_TRUE(store->isReady(made)) << "with a token or without";
    EXPECT_THAT(secrets.takeCalls(), IsEmpty());
}

TEST_F(StoreMigrationTest, gitHubBringsItsTokenWhenItHasOne) {
    setting(u"github.username"_s, u"octo"_s);
    setting(u"github.hasToken"_s, true);
    legacySecret(u"github"_s, "ghp");
    launchAndWait();
    EXPECT_FALSE(only().enabled);
    EXPECT_EQ(secret(only()), u"ghp"_s);
    EXPECT_TRUE(store->hasSecret(only().id));
}

TEST_F(StoreMigrationTest, gitHubWithALostTokenIsConnectedAllTheSame) {
    setting(u"github.username"_s, u"octo"_s);
    setting(u"github.hasToken"_s, true);
    launchAndWait();
    EXPECT_TRUE(store->isReady(only()));
    EXPECT_EQ(secret(only()), std::nullopt);
}

TEST_F(StoreMigrationTest, gitHubWithABlankUserNameIsLeftBehind) {
    setting(u"github.username"_s, u" \t"_s);
    setting(u"github.enabled"_s, true);
    setting(u"github.configured"_s, true);
    launchAndWait();
    EXPECT_THAT(store->connections(), IsEmpty());
}

TEST_F(StoreMigrationTest, theOthersFollowInTheirFixedOrder) {
    for (const auto &provider :
         {u"reddit"_s, u"hackernews"_s, u"coingecko"_s, u"ahrefs"_s, u"trustmrr"_s, u"plausible"_s,
          u"dodo"_s, u"lemonsqueezy"_s, u"chartmogul"_s, u"stripe"_s}) {
        setting(provider + u".configured"_s, true);
        legacySecret(provider, provider.toUtf8() + "-key");
    }
    setting(u"github.username"_s, u"octo"_s);
    setting(u"dodo.enabled"_s, true);
    setting(u"plausible.extra"_s, u"a.org"_s);
    setting(u"ahrefs.extra"_s, u"not read"_s);
    setting(u"vercel.configured"_s, true);
    launchAndWait();
    QStringList told;
    for (const auto &connection : store->connections()) {
        told << connection.name + (connection.enabled ? u"+"_s : u"-"_s) +
                    connection.extra.value_or(u""_s) + u' ' +
                    secret(connection).value_or(u"none"_s);
    }
    EXPECT_THAT(told,
                ElementsAre(u"Stripe- stripe-key"_s, u"GitHub-octo none"_s,
                            u"ChartMogul- chartmogul-key"_s, u"Lemon Squeezy- lemonsqueezy-key"_s,
                            u"Dodo Payments+ dodo-key"_s, u"Plausible-a.org plausible-key"_s,
                            u"TrustMRR- trustmrr-key"_s, u"Ahrefs- ahrefs-key"_s,
                            u"Crypto- coingecko-key"_s, u"Hacker News- hackernews-key"_s,
                            u"Reddit- reddit-key"_s));
    EXPECT_EQ(secrets.entries().size(), 10);
    EXPECT_EQ(posts, 2);
}

TEST_F(StoreMigrationTest, secretsOfTheEarlierServiceNameAreCarriedOverToo) {
    defaults.remove(u"tavi.keychain.serviceMigrated"_s);
    setting(u"dodo.configured"_s, true);
    secrets.put(u"com.zeph.integrations"_s, {u"dodo"_s, "key"});
    launchAndWait();
    EXPECT_THAT(secrets.entries(),
                ElementsAre(u"com.tavi.integrations "_s + secretAccount(only().id) + u"=key"_s));
}

TEST_F(StoreMigrationTest, accountsAppearAtOnceAndAreReadyWhenTheirSecretsHaveMoved) {
    setting(u"stripe.configured"_s, true);
    legacySecret(u"stripe"_s, "sk");
    launch();
    const auto made = only();
    EXPECT_FALSE(store->isReady(made));
    EXPECT_TRUE(defaults.boolean(migratedKey));
    EXPECT_THAT(storedConnections(), ElementsAre(made));
    EXPECT_THAT(secrets.takeCalls(), IsEmpty()) << "the main thread asked";
    const auto meanwhile = add(u"rss"_s);
    settle();
    EXPECT_THAT(store->connections(), ElementsAre(made, meanwhile));
    EXPECT_TRUE(store->isReady(made));
}

TEST_F(StoreMigrationTest, aCrashAtAnyCallOfTheKeyringLosesNoSecretAndLeavesNone) {
    struct Crash {};
    bool hasCrashed = true;
    for (int last = 0; hasCrashed; ++last) {
        SCOPED_TRACE(last);
        hasCrashed = false;
        int calls = 0;
        earlierVersionWithTwoKeys();
        secrets.setHook([&](const QString &) {
            if (calls++ == last) {
                throw Crash();
            }
        });
        launch();
        try {
            settle();
        } catch (const Crash &) {
            hasCrashed = true;
        }
        launchAfterEnd();
        expectBothCarriedOver();
    }
}

TEST_F(StoreMigrationTest, anEndAtAnyCallOfTheKeyringLosesNoSecretAndLeavesNone) {
    hasEnded = true;
    for (int last = 0; hasEnded; ++last) {
        SCOPED_TRACE(last);
        earlierVersionWithTwoKeys();
        launch();
        endAtCall(last);
        settle();
        launchAfterEnd();
        expectBothCarriedOver();
    }
}

TEST_F(StoreMigrationTest, anEndWithinTheMoveToTheServiceNameLeavesItToTheNextLaunch) {
    defaults.remove(u"tavi.keychain.serviceMigrated"_s);
    secrets.put(u"com.zeph.integrations"_s, {u"stripe"_s, "sk"});
    launch();
    endAtCall(0);
    keychain->migrateLegacyServiceIfNeeded();
    EXPECT_FALSE(defaults.boolean(u"tavi.keychain.serviceMigrated"_s));
    launchAfterEnd();
    keychain->migrateLegacyServiceIfNeeded();
    EXPECT_THAT(secrets.entries(), ElementsAre(u"com.tavi.integrations stripe=sk"_s));
}

TEST_F(StoreMigrationTest, anAccountClearedBeforeItsSecretMovedIsNotReadyLater) {
    setting(u"stripe.configured"_s, true);
    legacySecret(u"stripe"_s, "sk");
    launch();
    store->setSecret(std::nullopt, only().id);
    launchAfterEnd();
    EXPECT_FALSE(store->hasSecret(only().id));
    EXPECT_THAT(secrets.entries(), IsEmpty());
}

TEST_F(StoreMigrationTest, anEndBeforeTheListIsKeptMigratesAnew) {
    setting(u"stripe.configured"_s, true);
    legacySecret(u"stripe"_s, "sk");
    PendingSecrets{{{u"stripe"_s, QUuid::createUuid()}}}.save(defaults);
    launchAndWait();
    EXPECT_EQ(secret(only()), u"sk"_s);
    EXPECT_EQ(secrets.entries().size(), 1);
}

TEST_F(StoreMigrationTest, anAccountDeletedBeforeItsSecretMovedTakesItAlong) {
    setting(u"stripe.configured"_s, true);
    legacySecret(u"stripe"_s, "sk");
    launch();
    removeForGood(*store, only().id);
    executor.forgetAll(); // the end
    launchAndWait();
    EXPECT_THAT(store->connections(), IsEmpty());
    EXPECT_THAT(secrets.entries(), IsEmpty());
}

TEST_F(StoreMigrationTest, deprecatedAccountsAreRemovedWithAllTheyHad) {
    const IntegrationConnection one{QUuid::createUuid(), u"cursor"_s, u"Old"_s};
    const IntegrationConnection kept{QUuid::createUuid(), u"rss"_s, u"n"_s};
    const IntegrationConnection two{QUuid::createUuid(), u"cursor"_s, u"Older"_s};
    stored({one, kept, two});
    for (const auto &connection : {one, kept, two}) {
        defaults.set(configuredKey(connection.id), true);
        legacySecret(secretAccount(connection.id), "key");
    }
    launchAndWait();
    EXPECT_THAT(store->connections(), ElementsAre(kept));
    EXPECT_THAT(storedConnections(), ElementsAre(kept));
    EXPECT_THAT(secrets.takeCalls(),
                ElementsAre(call("remove", one.id), legacyCall("remove", one.id),
                            call("remove", two.id), legacyCall("remove", two.id)));
    EXPECT_EQ(secrets.entries().size(), 1);
    EXPECT_EQ(defaults.value(configuredKey(one.id)), std::nullopt);
    EXPECT_EQ(defaults.value(configuredKey(two.id)), std::nullopt);
    EXPECT_TRUE(defaults.boolean(configuredKey(kept.id)));
    EXPECT_TRUE(defaults.boolean(cursorKey));
    EXPECT_EQ(posts, 1);
}

TEST_F(StoreMigrationTest, withoutDeprecatedAccountsOnlyTheFlagIsSet) {
    stored({{QUuid::createUuid(), u"rss"_s, u"n"_s}});
    defaults.set(migratedKey, true);
    const int writes = defaults.writes;
    launchAndWait();
    EXPECT_TRUE(defaults.boolean(cursorKey));
    EXPECT_EQ(defaults.writes, writes + 1);
    EXPECT_EQ(posts, 0);
}

TEST_F(StoreMigrationTest, theCleanUpFollowsTheMigrationOfTheServiceName) {
    defaults.remove(u"tavi.keychain.serviceMigrated"_s);
    const IntegrationConnection old{QUuid::createUuid(), u"cursor"_s, u"Old"_s};
    stored({old});
    secrets.put(u"com.zeph.integrations"_s, {secretAccount(old.id), "key"});
    launchAndWait();
    EXPECT_THAT(secrets.takeCalls(),
                ElementsAre(u"copyAll com.zeph.integrations"_s, call("add", old.id),
                            legacyCall("remove", old.id), call("remove", old.id),
                            legacyCall("remove", old.id)));
    EXPECT_THAT(secrets.entries(), IsEmpty());
}

} // namespace

} // namespace zeph
