// SPDX-License-Identifier: MIT
#include "services/accounts/PendingSecrets.h"
#include "services/accounts/StoreFixture.h"
#include "support/LoggedLines.h"

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace zeph {

namespace {

const auto pendingKey = u"zeph.integrations.pendingSecrets"_s;

/// A keyring whose prompt is dismissed, or that is not there, in whatever call.
class RefusedKeyringTest : public StoreFixture {
protected:
    RefusedKeyringTest() { launchAndSettle(); }

    SecretDone tell() {
        return [this](SecretOutcome outcome) { told.push_back(outcome); };
    }

    /// Calls `round` for a refusal or an absence in each call of the store, of that call alone and
    /// of all that follow, as long as there are calls.
    template <typename Round>
    void atEveryCall(Round round) {
        for (const auto outcome : {SecretOutcome::refused, SecretOutcome::unavailable}) {
            for (const bool andFollowing : {false, true}) {
                hasEnded = true;
                for (int call = 0; hasEnded; ++call) {
                    SCOPED_TRACE(testing::Message()
                                 << "call " << call << ", " << (andFollowing ? "all" : "alone"));
                    told.clear();
                    round([=, this] { answerAtCall(call, outcome, andFollowing); }, outcome);
                }
            }
        }
    }

    /// What the keyring has, whatever this process remembers.
    std::optional<QString> kept(const QUuid &id) {
        return Keychain(secrets, defaults).get(secretAccount(id)).value;
    }

    std::vector<SecretOutcome> told;
};

TEST_F(RefusedKeyringTest, theOutcomeOfEveryChangeIsTold) {
    for (const auto outcome :
         {SecretOutcome::done, SecretOutcome::refused, SecretOutcome::unavailable}) {
        const auto account = add(u"stripe"_s);
        const CustomAPIConfig config{QUuid::createUuid(), u"n"_s, u"u"_s, {}, {}};
        told.clear();
        secrets.answer(outcome);
        store->setSecret(u"sk"_s, account.id, tell());
        store->setSecret(std::nullopt, account.id, tell());
        removeForGood(*store, account.id, tell());
        store->upsertCustomAPI(config, tell());
        removeForGood(*store, config.id, tell());
        EXPECT_THAT(told, IsEmpty()) << "told within the call";
        executor.runAll();
        EXPECT_THAT(told, IsEmpty()) << "told away from the main thread";
        loop.drain();
        EXPECT_EQ(told, std::vector(5, outcome));
    }
}

TEST_F(RefusedKeyringTest, anAccountWhoseNewSecretIsRefusedKeepsItsPreviousOne) {
    const auto account = add(u"stripe"_s);
    atEveryCall([&](const auto &refuse, SecretOutcome outcome) {
        store->setSecret(u"old"_s, account.id);
        settle();
        refuse();
        store->setSecret(u"new"_s, account.id, tell());
        settle();
        secrets.setHook({});
        secrets.answer(SecretOutcome::done);
        ASSERT_THAT(told, SizeIs(1));
        EXPECT_EQ(kept(account.id), told[0] == SecretOutcome::done ? u"new"_s : u"old"_s);
        EXPECT_TRUE(told[0] == SecretOutcome::done || told[0] == outcome);
        launchAfterEnd();
        EXPECT_TRUE(store->isReady(account));
        EXPECT_EQ(secrets.entries().size(), 1);
    });
}

TEST_F(RefusedKeyringTest, anEndWhileASecretIsReplacedLosesNeither) {
    const auto account = add(u"stripe"_s);
    hasEnded = true;
    for (int last = 0; hasEnded; ++last) {
        SCOPED_TRACE(last);
        store->setSecret(u"old"_s, account.id);
        settle();
        endAtCall(last);
        store->setSecret(u"new"_s, account.id);
        settle();
        launchAfterEnd();
        EXPECT_TRUE(store->isReady(account));
        EXPECT_THAT(kept(account.id).value_or(u"lost"_s), testing::AnyOf(u"old"_s, u"new"_s));
    }
}

TEST_F(RefusedKeyringTest, aDeletionThatWasRefusedIsMadeUpForAtTheNextLaunch) {
    atEveryCall([&](const auto &refuse, SecretOutcome outcome) {
        const auto deleted = add(u"stripe"_s);
        const auto cleared = add(u"polar"_s);
        store->setSecret(u"one"_s, deleted.id);
        store->setSecret(u"two"_s, cleared.id);
        settle();
        refuse();
        removeForGood(*store, deleted.id, tell());
        store->setSecret(std::nullopt, cleared.id, tell());
        settle();
        ASSERT_THAT(told, SizeIs(2));
        EXPECT_EQ(hasEnded, told[0] == outcome || told[1] == outcome);
        EXPECT_FALSE(store->hasSecret(cleared.id));
        EXPECT_EQ(hasEnded, defaults.value(pendingKey).has_value());
        launchAfterEnd();
        EXPECT_THAT(secrets.entries(), IsEmpty());
        EXPECT_FALSE(store->hasSecret(cleared.id));
        EXPECT_EQ(defaults.value(pendingKey), std::nullopt);
        removeForGood(*store, cleared.id);
        settle();
    });
}

TEST_F(RefusedKeyringTest, whoAddsAnEndpointIsAskedForThoseThatThereAreOnceMore) {
    const CustomAPIConfig there{QUuid::createUuid(), u"there"_s, u"u"_s, {}, {}};
    store->upsertCustomAPI(there);
    settle();
    secrets.dismiss();
    launchAndSettle();
    ASSERT_FALSE(store->areCustomAPIsLoaded());
    store->loadCustomAPIs(); // which nobody asked for
    settle();
    ASSERT_FALSE(store->areCustomAPIsLoaded());
    const CustomAPIConfig added{QUuid::createUuid(), u"added"_s, u"u"_s, {}, {}};
    store->upsertCustomAPI(added, tell());
    settle();
    EXPECT_THAT(told, ElementsAre(SecretOutcome::refused));
    EXPECT_THAT(store->customAPIs(), ElementsAre(there));
}

TEST_F(RefusedKeyringTest, mayKeepWhatWasGivenToItOrIsStillToGoOrToCome) {
    const auto keyless = add(u"rss"_s);
    const auto keyed = add(u"stripe"_s);
    const auto moving = add(u"polar"_s);
    store->markReady(keyless.id);
    store->setSecret(u"sk"_s, keyed.id);
    settle();
    PendingSecrets{{{u"polar"_s, moving.id}}, {}, {}}.save(defaults);
    secrets.answer(SecretOutcome::refused);
    launch();
    settle();
    EXPECT_FALSE(store->mayKeepSecret(keyless.id));
    EXPECT_TRUE(store->mayKeepSecret(keyed.id));
    EXPECT_TRUE(store->mayKeepSecret(moving.id));
    EXPECT_TRUE(store->mayKeepSecret(QUuid::createUuid())) << "an endpoint lies in it whole";
    ASSERT_TRUE(store->removeForNow(keyless.id));
    EXPECT_FALSE(store->mayKeepSecret(keyless.id));
    store->setSecret(std::nullopt, keyed.id);
    settle();
    EXPECT_TRUE(store->mayKeepSecret(keyed.id)) << "it is still to go";
}

TEST_F(RefusedKeyringTest, whoRefusesIsAskedOnceALaunch) {
    for (int account = 0; account < 3; ++account) {
        const auto added = add(u"stripe"_s);
        store->setSecret(u"sk"_s, added.id);
        settle();
        secrets.answer(SecretOutcome::refused);
        removeForGood(*store, added.id);
        settle();
        secrets.answer(SecretOutcome::done);
    }
    secrets.answer(SecretOutcome::refused);
    launch();
    secrets.takeCalls();
    settle();
    EXPECT_THAT(secrets.takeCalls(), SizeIs(1));
    launchAfterEnd();
    EXPECT_THAT(secrets.entries(), IsEmpty());
}

TEST_F(RefusedKeyringTest, aSecretThatIsToGoStaysNotedWhenTheNextIsRefused) {
    const auto account = add(u"stripe"_s);
    for (const auto outcome : {SecretOutcome::refused, SecretOutcome::unavailable}) {
        store->setSecret(u"old"_s, account.id);
        settle();
        secrets.answer(outcome);
        store->setSecret(std::nullopt, account.id);
        settle();
        store->setSecret(u"new"_s, account.id);
        store->setSecret(u"newer"_s, account.id);
        settle();
        EXPECT_TRUE(store->isReady(account)) << "until the end";
        launchAfterEnd();
        EXPECT_EQ(kept(account.id), std::nullopt) << "the service was asked with it";
        EXPECT_EQ(defaults.value(pendingKey), std::nullopt);
    }
}

TEST_F(RefusedKeyringTest, aSecretThatIsGoneIsNotNotedForTheRefusalOfTheNext) {
    const auto account = add(u"stripe"_s);
    store->setSecret(u"old"_s, account.id);
    settle();
    secrets.setHook([this](const QString &call) {
        secrets.answer(call.startsWith(u"add") ? SecretOutcome::unavailable : SecretOutcome::done);
    });
    store->setSecret(std::nullopt, account.id);
    store->setSecret(u"new"_s, account.id); // which the keyring may have kept all the same
    settle();
    EXPECT_THAT(secrets.entries(), IsEmpty());
    EXPECT_EQ(defaults.value(pendingKey), std::nullopt);
}

TEST_F(RefusedKeyringTest, aSecretKeptAfterAllIsNotErasedForTheRefusalBeforeIt) {
    const auto account = add(u"stripe"_s);
    secrets.answer(SecretOutcome::refused);
    store->setSecret(std::nullopt, account.id);
    store->setSecret(u"one"_s, account.id);
    settle();
    store->setSecret(u"two"_s, account.id); // refused as well, while the next is on its way
    store->setSecret(u"three"_s, account.id);
    secrets.setHook([this, calls = 0](const QString &) mutable {
        secrets.answer(calls++ == 0 ? SecretOutcome::refused : SecretOutcome::done);
    });
    settle();
    launchAfterEnd();
    EXPECT_EQ(kept(account.id), u"three"_s);
}

TEST_F(RefusedKeyringTest, aSecretGivenAfterARefusedErasureIsNotErasedLater) {
    const auto account = add(u"stripe"_s);
    store->setSecret(u"old"_s, account.id);
    settle();
    secrets.answer(SecretOutcome::refused);
    store->setSecret(std::nullopt, account.id);
    settle();
    secrets.answer(SecretOutcome::done);
    store->setSecret(u"new"_s, account.id);
    executor.runAll(); // it is kept, and then the process is killed
    launchAfterEnd();
    EXPECT_EQ(kept(account.id), u"new"_s);
}

TEST_F(RefusedKeyringTest, aRefusedMoveOfAnEarlierVersionLosesNoSecretAndLeavesNone) {
    atEveryCall([&](const auto &refuse, SecretOutcome /*outcome*/) {
        for (const auto &name : {u"v2"_s, u"connections"_s}) {
            defaults.remove(u"zeph.integrations."_s + name);
        }
        for (const auto &connection : store->connections()) {
            secrets.remove(u"com.tavi.integrations"_s, secretAccount(connection.id));
        }
        for (const auto &provider : {u"dodo"_s, u"polar"_s, u"chartmogul"_s}) {
            defaults.set(u"zeph.integrations.%1.configured"_s.arg(provider), true);
        }
        secrets.put(u"com.tavi.integrations"_s, {u"chartmogul"_s, "one"});
        secrets.put(u"com.tavi.integrations"_s, {u"dodo"_s, "two"});
        refuse();
        launch();
        settle();
        ASSERT_THAT(store->connections(), SizeIs(2));
        const auto made = store->connections();
        secrets.setHook({});
        secrets.answer(SecretOutcome::done);
        for (const auto &connection : made) {
            EXPECT_TRUE(!store->isReady(connection) || kept(connection.id));
        }
        launchAfterEnd();
        EXPECT_EQ(store->connections(), made);
        EXPECT_EQ(kept(made[0].id), u"one"_s);
        EXPECT_EQ(kept(made[1].id), u"two"_s);
        EXPECT_TRUE(store->isReady(made[0]) && store->isReady(made[1]));
        EXPECT_EQ(secrets.entries().size(), 2);
        EXPECT_EQ(defaults.value(pendingKey), std::nullopt);
    });
}

TEST_F(RefusedKeyringTest, aNewSecretIsNotReplacedByTheOneThatComesLate) {
    for (const auto &name : {u"v2"_s, u"connections"_s}) {
        defaults.remove(u"zeph.integrations."_s + name);
    }
    defaults.set(u"zeph.integrations.dodo.configured"_s, true);
    secrets.put(u"com.tavi.integrations"_s, {u"dodo"_s, "old"});
    secrets.answer(SecretOutcome::refused);
    launch();
    settle();
    secrets.answer(SecretOutcome::done);
    const auto account = store->connections().at(0);
    store->setSecret(u"new"_s, account.id);
    settle();
    launchAfterEnd();
    EXPECT_EQ(kept(account.id), u"new"_s);
    EXPECT_EQ(secrets.entries().size(), 1);
}

TEST_F(RefusedKeyringTest, anAccountDeletedAfterARefusedMoveTakesItsSecretAlong) {
    for (const auto &name : {u"v2"_s, u"connections"_s}) {
        defaults.remove(u"zeph.integrations."_s + name);
    }
    defaults.set(u"zeph.integrations.dodo.configured"_s, true);
    secrets.put(u"com.tavi.integrations"_s, {u"dodo"_s, "old"});
    secrets.answer(SecretOutcome::refused);
    launch();
    settle();
    secrets.answer(SecretOutcome::done);
    removeForGood(*store, store->connections().at(0).id);
    settle();
    EXPECT_THAT(secrets.entries(), IsEmpty());
    EXPECT_EQ(defaults.value(pendingKey), std::nullopt);
}

TEST_F(RefusedKeyringTest, theEarlierServiceNameLosesNoSecretToARefusal) {
    atEveryCall([&](const auto &refuse, SecretOutcome /*outcome*/) {
        const auto one = add(u"stripe"_s);
        const auto two = add(u"polar"_s);
        for (const auto &account : {one, two}) {
            store->markReady(account.id);
            secrets.put(u"com.zeph.integrations"_s, {secretAccount(account.id), "sk"});
        }
        defaults.remove(u"tavi.keychain.serviceMigrated"_s);
        launch();
        refuse();
        keychain->migrateLegacyServiceIfNeeded();
        launchAfterEnd();
        EXPECT_TRUE(defaults.boolean(u"tavi.keychain.serviceMigrated"_s));
        EXPECT_EQ(keychain->get(secretAccount(one.id)).value, u"sk"_s);
        EXPECT_EQ(keychain->get(secretAccount(two.id)).value, u"sk"_s);
        removeForGood(*store, one.id);
        removeForGood(*store, two.id);
        settle();
        EXPECT_THAT(secrets.entries(), IsEmpty());
    });
}

TEST_F(RefusedKeyringTest, aListOfEndpointsThatWasRefusedStaysWhatItWas) {
    const CustomAPIConfig old{QUuid::createUuid(), u"old"_s, u"https://a.org"_s, {}, {}};
    const CustomAPIConfig added{QUuid::createUuid(), u"new"_s, u"https://b.org"_s, {}, {}};
    atEveryCall([&](const auto &refuse, SecretOutcome /*outcome*/) {
        removeForGood(*store, added.id);
        store->upsertCustomAPI(old);
        settle();
        refuse();
        store->upsertCustomAPI(added, tell());
        settle();
        EXPECT_THAT(store->customAPIs(), ElementsAre(old, added)) << "until the end";
        launchAfterEnd();
        ASSERT_THAT(told, SizeIs(1));
        EXPECT_THAT(store->customAPIs(), SizeIs(told[0] == SecretOutcome::done ? 2 : 1));
        ASSERT_FALSE(store->customAPIs().empty());
        EXPECT_EQ(store->customAPIs().front(), old);
    });
}

TEST_F(RefusedKeyringTest, aRemovalOfAnEndpointThatWasRefusedIsMadeUpForAtTheNextLaunch) {
    const CustomAPIConfig one{QUuid::createUuid(), u"one"_s, u"https://a.org"_s, {}, {}};
    const CustomAPIConfig two{QUuid::createUuid(), u"two"_s, u"https://b.org"_s, {}, {}};
    atEveryCall([&](const auto &refuse, SecretOutcome /*outcome*/) {
        store->upsertCustomAPI(one);
        store->upsertCustomAPI(two);
        settle();
        refuse();
        removeForGood(*store, one.id);
        removeForGood(*store, two.id);
        settle();
        EXPECT_THAT(store->customAPIs(), IsEmpty());
        launchAfterEnd();
        EXPECT_THAT(store->customAPIs(), IsEmpty());
        EXPECT_THAT(secrets.entries(), ElementsAre(u"com.tavi.integrations custom_apis=[]"_s));
        EXPECT_FALSE(defaults.boolean(u"zeph.integrations.custom.exists"_s));
        EXPECT_EQ(defaults.value(pendingKey), std::nullopt);
    });
}

TEST_F(RefusedKeyringTest, theMigrationEndsTheSameWhereverItsSettingsAreCutOff) {
    bool isCut = true;
    for (int writes = 0; isCut; ++writes) {
        SCOPED_TRACE(writes);
        for (const auto &name : {u"v2"_s, u"connections"_s, u"removedCursor"_s}) {
            defaults.remove(u"zeph.integrations."_s + name);
        }
        for (const auto &connection : store->connections()) {
            secrets.remove(u"com.tavi.integrations"_s, secretAccount(connection.id));
        }
        defaults.set(u"zeph.integrations.stripe.configured"_s, true);
        defaults.set(u"zeph.integrations.github.username"_s, u"octo"_s);
        secrets.put(u"com.tavi.integrations"_s, {u"stripe"_s, "sk"});
        defaults.endAfter(writes);
        secrets.setHook([this](const QString &) {
            secrets.answer(defaults.hasEnded() ? SecretOutcome::unavailable : SecretOutcome::done);
        });
        launch();
        settle();
        isCut = defaults.hasEnded();
        defaults.beginAnew();
        launchAfterEnd();
        ASSERT_THAT(store->connections(), SizeIs(2));
        EXPECT_EQ(kept(store->connections()[0].id), u"sk"_s);
        EXPECT_TRUE(store->isReady(store->connections()[0]));
        EXPECT_TRUE(store->isReady(store->connections()[1]));
        EXPECT_EQ(secrets.entries().size(), 1);
        EXPECT_EQ(defaults.value(pendingKey), std::nullopt);
        EXPECT_TRUE(defaults.boolean(u"zeph.integrations.v2"_s));
    }
}

TEST_F(RefusedKeyringTest, aRefusalIsLoggedWithoutAnyName) {
    const LoggedLines logged(u"zeph.accounts.info=true"_s);
    const auto account = add(u"stripe"_s);
    secrets.answer(SecretOutcome::refused);
    store->setSecret(u"sk_live_1"_s, account.id);
    settle();
    secrets.answer(SecretOutcome::unavailable);
    store->setSecret(std::nullopt, account.id);
    settle();
    keychain->get(secretAccount(account.id));
    EXPECT_EQ(logged.all(),
              QStringList({u"the keyring refused: a secret was not kept"_s,
                           u"the keyring is not available: a secret was not erased"_s,
                           u"the keyring is not available: a secret was not read"_s}));
}

} // namespace

} // namespace zeph
