// SPDX-License-Identifier: MIT
#include "services/accounts/StoreFixture.h"

#include <new>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace zeph {

namespace {

class AccountSecretsTest : public StoreFixture {
protected:
    AccountSecretsTest() { launchAndSettle(); }

    /// Lets everything so far happen and forgets that it did.
    void forget() {
        settle();
        secrets.takeCalls();
        posts = 0;
        willChanges = 0;
    }
};

TEST_F(AccountSecretsTest, aSecretIsTrimmedKeptAndMarksTheAccount) {
    auto account = add(u"stripe"_s);
    account.enabled = false;
    store->updateConnection(account);
    forget();
    store->setSecret(u" sk_live_1\n"_s, account.id);
    EXPECT_TRUE(store->connections().front().enabled);
    EXPECT_TRUE(storedConnections().front().enabled);
    EXPECT_FALSE(store->hasSecret(account.id)) << "an end would leave a mark without a secret";
    EXPECT_EQ(posts, 0);
    settle();
    EXPECT_TRUE(store->hasSecret(account.id));
    EXPECT_TRUE(store->isReady(account));
    EXPECT_THAT(secrets.takeCalls(),
                ElementsAre(call("add", account.id), legacyCall("remove", account.id)));
    EXPECT_EQ(keychain->get(secretAccount(account.id)).value, u"sk_live_1"_s);
    EXPECT_EQ(posts, 1);
}

TEST_F(AccountSecretsTest, itIsKnownWhetherAnAccountIsConnectedByASecret) {
    const auto account = add(u"github"_s);
    store->markReady(account.id);
    settle();
    EXPECT_TRUE(store->hasSecret(account.id));
    EXPECT_EQ(store->isSecretKept(account.id), false);
    store->setSecret(u"ghp_1"_s, account.id);
    EXPECT_EQ(store->isSecretKept(account.id), false) << "it is on its way";
    settle();
    EXPECT_EQ(store->isSecretKept(account.id), true);
    launchAndSettle();
    store->markReady(account.id);
    settle();
    EXPECT_EQ(store->isSecretKept(account.id), true) << "also by the next start";
    removeForGood(*store, account.id);
    settle();
    EXPECT_EQ(store->isSecretKept(account.id), std::nullopt);
}

TEST_F(AccountSecretsTest, whetherAnEarlierVersionKeptASecretIsUnknown) {
    const auto account = add(u"github"_s);
    defaults.set(configuredKey(account.id), true);
    store->markReady(account.id);
    EXPECT_EQ(store->isSecretKept(account.id), std::nullopt);
}

TEST_F(AccountSecretsTest, aSecretThatTheKeyringRefusesIsNotKept) {
    const auto account = add(u"github"_s);
    store->markReady(account.id);
    secrets.answer(SecretOutcome::refused);
    store->setSecret(u"ghp_1"_s, account.id);
    settle();
    EXPECT_EQ(store->isSecretKept(account.id), false);
}

TEST_F(AccountSecretsTest, theChangeIsAnnouncedBeforeReadinessChanges) {
    const auto account = add(u"stripe"_s);
    std::vector<bool> readiness;
    const auto subscription = store->objectWillChange.subscribe(
        [&] { readiness.push_back(store->hasSecret(account.id)); });
    store->setSecret(u"sk"_s, account.id);
    ASSERT_FALSE(readiness.empty());
    EXPECT_FALSE(readiness.front());
    settle();
    EXPECT_TRUE(readiness.back()) << "nobody is told to read it again";
}

TEST_F(AccountSecretsTest, aChangeIsToldOnlyWhenTheSecretIsInPlace) {
    const auto account = add(u"stripe"_s);
    forget();
    store->setSecret(u"sk"_s, account.id);
    loop.drain();
    EXPECT_EQ(posts, 0);
    executor.runAll();
    EXPECT_EQ(posts, 0);
    loop.drain();
    EXPECT_EQ(posts, 1);
}

TEST_F(AccountSecretsTest, whiteSpaceErasesTheSecretAndLeavesTheAccountEnabled) {
    const auto account = add(u"stripe"_s);
    store->setSecret(u"sk"_s, account.id);
    forget();
    for (const std::optional<QString> &nothing :
         {std::optional(u"  "_s), std::optional(u"\n"_s), std::optional<QString>()}) {
        store->setSecret(nothing, account.id);
        EXPECT_FALSE(store->hasSecret(account.id));
        settle();
        EXPECT_THAT(secrets.takeCalls(),
                    ElementsAre(call("remove", account.id), legacyCall("remove", account.id)));
    }
    EXPECT_THAT(secrets.entries(), IsEmpty());
    EXPECT_EQ(defaults.get<bool>(configuredKey(account.id)), false);
    EXPECT_TRUE(store->connections().front().enabled);
    EXPECT_EQ(posts, 3);
}

TEST_F(AccountSecretsTest, aClearedSecretIsToldWithoutWaitingForTheKeyring) {
    const auto account = add(u"stripe"_s);
    store->setSecret(u"sk"_s, account.id);
    forget();
    store->setSecret(std::nullopt, account.id);
    loop.drain();
    EXPECT_EQ(posts, 1);
    EXPECT_FALSE(store->isReady(account));
    EXPECT_EQ(secrets.entries().size(), 1) << "the keyring has not been asked yet";
}

TEST_F(AccountSecretsTest, aSecretThatIsClearedBeforeItIsKeptLeavesNoMark) {
    const auto account = add(u"stripe"_s);
    store->setSecret(u"sk"_s, account.id);
    store->setSecret(std::nullopt, account.id);
    settle();
    EXPECT_FALSE(store->hasSecret(account.id));
    EXPECT_THAT(secrets.entries(), IsEmpty());
}

TEST_F(AccountSecretsTest, anErasureThatTheEndCutsOffIsMadeUpFor) {
    const auto cleared = add(u"stripe"_s);
    const auto deleted = add(u"polar"_s);
    store->setSecret(u"one"_s, cleared.id);
    store->setSecret(u"two"_s, deleted.id);
    settle();
    store->setSecret(std::nullopt, cleared.id);
    removeForGood(*store, deleted.id);
    executor.forgetAll(); // the process ends while the keyring asks for a password
    EXPECT_EQ(secrets.entries().size(), 2);
    launchAndSettle();
    EXPECT_THAT(secrets.entries(), IsEmpty());
    EXPECT_FALSE(store->hasSecret(cleared.id));
    launch();
    EXPECT_EQ(executor.waiting(), 0U) << "there is nothing left to erase";
}

TEST_F(AccountSecretsTest, anErasureThatAnEndCutsOffAtAnyCallIsMadeUpFor) {
    hasEnded = true;
    for (int last = 0; hasEnded; ++last) {
        SCOPED_TRACE(last);
        const auto cleared = add(u"stripe"_s);
        const auto deleted = add(u"polar"_s);
        store->setSecret(u"one"_s, cleared.id);
        store->setSecret(u"two"_s, deleted.id);
        settle();
        endAtCall(last);
        store->setSecret(std::nullopt, cleared.id);
        removeForGood(*store, deleted.id);
        settle();
        launchAfterEnd();
        EXPECT_THAT(secrets.entries(), IsEmpty());
        EXPECT_FALSE(store->hasSecret(cleared.id));
        EXPECT_EQ(defaults.value(u"zeph.integrations.pendingSecrets"_s), std::nullopt);
    }
}

TEST_F(AccountSecretsTest, anEndWhileASecretIsKeptLeavesNoMarkWithoutASecret) {
    hasEnded = true;
    for (int last = 0; hasEnded; ++last) {
        SCOPED_TRACE(last);
        const auto account = add(u"stripe"_s);
        endAtCall(last);
        store->setSecret(u"sk"_s, account.id);
        settle();
        launchAfterEnd();
        const bool isKept = keychain->get(secretAccount(account.id)).value.has_value();
        EXPECT_TRUE(isKept || !store->hasSecret(account.id));
        EXPECT_TRUE(hasEnded || (isKept && store->hasSecret(account.id)));
    }
}

TEST_F(AccountSecretsTest, theLastOfSeveralErasuresIsMadeUpForToo) {
    const auto account = add(u"stripe"_s);
    store->setSecret(std::nullopt, account.id);
    store->setSecret(u"sk"_s, account.id);
    store->setSecret(std::nullopt, account.id);
    endAtCall(4); // the first two are done, the third begins
    settle();
    EXPECT_TRUE(hasEnded);
    EXPECT_EQ(secrets.entries().size(), 1);
    launchAfterEnd();
    EXPECT_THAT(secrets.entries(), IsEmpty());
    EXPECT_FALSE(store->hasSecret(account.id));
}

TEST_F(AccountSecretsTest, anAccountMarkedReadyAfterItsKeyWasClearedStaysReady) {
    const auto account = add(u"github"_s, u"octo"_s);
    store->setSecret(u"ghp"_s, account.id);
    store->setSecret(std::nullopt, account.id);
    store->markReady(account.id);
    settle();
    EXPECT_TRUE(store->isReady(account));
    EXPECT_THAT(secrets.entries(), IsEmpty());
}

TEST_F(AccountSecretsTest, anErasureIsNotedBeforeTheListForgetsTheAccount) {
    const auto account = add(u"stripe"_s);
    settle();
    defaults.written.clear();
    store->removeForNow(account.id);
    EXPECT_THAT(defaults.written, ElementsAre(u"zeph.integrations.pendingSecrets"_s,
                                              u"zeph.integrations.connections"_s));
    store->settle(account.id);
    defaults.written.clear();
    store->setSecret(std::nullopt, account.id);
    EXPECT_EQ(defaults.written.value(0), configuredKey(account.id)) << "noted since the deletion";
}

TEST_F(AccountSecretsTest, aKeyringThatFailsKeepsTheNoteAndHoldsUpNoOther) {
    const auto one = add(u"stripe"_s);
    const auto two = add(u"stripe"_s);
    store->setSecret(u"1"_s, one.id);
    store->setSecret(u"2"_s, two.id);
    settle();
    secrets.setHook([&one](const QString &call) {
        if (call.endsWith(secretAccount(one.id))) {
            throw std::bad_alloc();
        }
    });
    removeForGood(*store, one.id);
    removeForGood(*store, two.id);
    settle();
    EXPECT_EQ(secrets.entries().size(), 1);
    launchAfterEnd();
    EXPECT_THAT(secrets.entries(), IsEmpty());
}

TEST_F(AccountSecretsTest, aSecretOfNoAccountIsKeptAllTheSame) {
    const auto stranger = QUuid::createUuid();
    store->setSecret(u"sk"_s, stranger);
    settle();
    EXPECT_TRUE(store->hasSecret(stranger));
    EXPECT_EQ(secrets.entries().size(), 1);
    EXPECT_THAT(store->connections(), IsEmpty());
    EXPECT_EQ(posts, 1);
    EXPECT_EQ(willChanges, 2) << "before it, and when it can be read";
}

TEST_F(AccountSecretsTest, secretsArriveInTheOrderInWhichTheyWereGiven) {
    const auto account = add(u"stripe"_s);
    store->setSecret(u"one"_s, account.id);
    store->setSecret(u"two"_s, account.id);
    store->setSecret(std::nullopt, account.id);
    store->setSecret(u"three"_s, account.id);
    EXPECT_EQ(executor.waiting(), 1U) << "they would overtake each other in tasks of their own";
    settle();
    EXPECT_EQ(Keychain(secrets, defaults).get(secretAccount(account.id)).value, u"three"_s);
    EXPECT_EQ(secrets.entries().size(), 1);
}

TEST_F(AccountSecretsTest, markingReadySetsTheFlagAndTells) {
    const auto account = add(u"rss"_s, u"https://a.org/feed"_s);
    forget();
    store->markReady(account.id);
    EXPECT_TRUE(store->hasSecret(account.id));
    EXPECT_EQ(posts, 0);
    settle();
    EXPECT_EQ(posts, 1);
    EXPECT_THAT(secrets.takeCalls(), IsEmpty());
}

TEST_F(AccountSecretsTest, gitHubWithoutATokenIsReadyWithAUserName) {
    auto account = add(u"github"_s, u"octo"_s);
    EXPECT_FALSE(store->isReady(account));
    store->markReady(account.id);
    EXPECT_TRUE(store->isReady(account));
    for (const std::optional<QString> &blank : {std::optional(u"   "_s), std::optional(u"\t"_s),
                                                std::optional(u""_s), std::optional<QString>()}) {
        account.extra = blank;
        EXPECT_FALSE(store->isReady(account));
    }
    account.extra = u"\n"_s;
    EXPECT_TRUE(store->isReady(account)) << "a newline is no blank";
}

TEST_F(AccountSecretsTest, servicesWithoutAKeyNeedTheFlagAndTheirExtra) {
    for (const auto &provider : {u"ahrefs"_s, u"coingecko"_s, u"hackernews"_s, u"reddit"_s,
                                 u"producthunt"_s, u"bluesky"_s, u"currency"_s, u"rss"_s}) {
        auto account = add(provider, u"x"_s);
        EXPECT_FALSE(store->isReady(account)) << provider.toStdString();
        store->markReady(account.id);
        EXPECT_TRUE(store->isReady(account)) << provider.toStdString();
        account.extra = u" "_s;
        EXPECT_FALSE(store->isReady(account)) << provider.toStdString();
    }
}

TEST_F(AccountSecretsTest, plausibleAndTrustMrrNeedAKeyAndTheirExtra) {
    for (const auto &provider : {u"plausible"_s, u"trustmrr"_s}) {
        auto account = add(provider, u"site"_s);
        EXPECT_FALSE(store->isReady(account));
        store->setSecret(u"key"_s, account.id);
        settle();
        EXPECT_TRUE(store->isReady(account));
        account.extra = u""_s;
        EXPECT_FALSE(store->isReady(account));
        account.extra = u" \t"_s;
        EXPECT_FALSE(store->isReady(account));
    }
}

TEST_F(AccountSecretsTest, everyOtherServiceNeedsItsKeyAlone) {
    for (const auto &provider : {u"stripe"_s, u"chartmogul"_s, u"lemonsqueezy"_s, u"dodo"_s,
                                 u"vercel"_s, u"openai"_s, u"unheard-of"_s}) {
        const auto account = add(provider);
        EXPECT_FALSE(store->isReady(account)) << provider.toStdString();
        store->setSecret(u"key"_s, account.id);
        settle();
        EXPECT_TRUE(store->isReady(account)) << provider.toStdString();
    }
}

TEST_F(AccountSecretsTest, readinessDoesNotAskWhetherTheAccountIsEnabled) {
    auto account = add(u"stripe"_s);
    store->setSecret(u"key"_s, account.id);
    settle();
    account.enabled = false;
    EXPECT_TRUE(store->isReady(account));
}

TEST_F(AccountSecretsTest, askingForReadinessNeverTouchesSecrets) {
    std::vector<IntegrationConnection> accounts;
    for (const auto &provider : {u"stripe"_s, u"github"_s, u"plausible"_s, u"rss"_s, u"dodo"_s}) {
        accounts.push_back(add(provider, u"x"_s));
        store->setSecret(u"key"_s, accounts.back().id);
    }
    forget();
    launch(); // so that nothing is remembered
    for (int time = 0; time < 100; ++time) {
        for (const auto &account : accounts) {
            EXPECT_TRUE(store->isReady(account));
            EXPECT_TRUE(store->hasSecret(account.id));
        }
    }
    settle();
    EXPECT_THAT(secrets.takeCalls(), IsEmpty());
    EXPECT_EQ(executor.waiting(), 0U);
}

TEST_F(AccountSecretsTest, aSecretThatCouldNotBeKeptAnswersUntilTheEnd) {
    const auto account = add(u"stripe"_s);
    secrets.answer(SecretOutcome::refused);
    store->setSecret(u"sk"_s, account.id);
    settle();
    EXPECT_EQ(keychain->get(secretAccount(account.id)).value, u"sk"_s);
    EXPECT_TRUE(store->isReady(account));
    secrets.answer(SecretOutcome::done);
    launch();
    EXPECT_EQ(keychain->get(secretAccount(account.id)).value, std::nullopt);
    EXPECT_TRUE(store->isReady(account)) << "only the flag counts";
}

TEST_F(AccountSecretsTest, theMigrationOfTheServiceNameComesBeforeTheFirstSecret) {
    defaults.remove(u"tavi.keychain.serviceMigrated"_s);
    const auto account = add(u"stripe"_s);
    removeForGood(*store, account.id);
    settle();
    EXPECT_THAT(secrets.takeCalls(),
                ElementsAre(u"copyAll com.zeph.integrations"_s, call("remove", account.id),
                            legacyCall("remove", account.id)));
}

} // namespace

} // namespace zeph
