// SPDX-License-Identifier: MIT
#include "services/accounts/PendingSecrets.h"
#include "services/accounts/StoreFixture.h"

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace zeph {

namespace {

const auto pendingKey = u"zeph.integrations.pendingSecrets"_s;
const auto existsKey = u"zeph.integrations.custom.exists"_s;

/// Does everything within the call.
class InlineExecutor : public TaskExecutor {
public:
    void run(std::function<void()> task) override { task(); }
};

/// Accounts and endpoints that are removed and may be taken back.
class RemovalTest : public StoreFixture {
protected:
    RemovalTest() { launchAndSettle(); }

    SecretDone tell() {
        return [this](SecretOutcome outcome) { told.push_back(outcome); };
    }

    IntegrationConnection addKept(const QString &provider) {
        const auto account = add(provider);
        store->setSecret(u"sk"_s, account.id);
        settle();
        return account;
    }

    CustomAPIConfig addEndpoint(const QString &name) {
        CustomAPIConfig config{QUuid::createUuid(), name, u"https://a.org"_s, {}, {}};
        config.headers.push_back({QUuid::createUuid(), u"X-Key"_s, u"secret "_s + name});
        store->upsertCustomAPI(config);
        settle();
        return config;
    }

    /// What the keyring has, whatever this process remembers.
    std::optional<QString> kept(const QUuid &id) {
        return Keychain(secrets, defaults).get(secretAccount(id)).value;
    }

    std::vector<CustomAPIConfig> keptEndpoints() {
        const auto text = Keychain(secrets, defaults).get(u"custom_apis"_s).value;
        return coding::customAPIs(text.value_or(u"[]"_s).toUtf8()).value_or(store->customAPIs());
    }

    /// Has the settings take only `writes` more before the program ends.
    template <typename Change>
    bool endAfterWrites(int writes, Change change) {
        defaults.endAfter(writes);
        change();
        const bool wasCutOff = defaults.hasEnded();
        executor.forgetAll();
        defaults.beginAnew();
        return wasCutOff;
    }

    std::vector<SecretOutcome> told;
};

TEST_F(RemovalTest, anAccountGoesAtOnceAndItsSecretStays) {
    const auto account = addKept(u"stripe"_s);
    const auto other = addKept(u"polar"_s);
    posts = 0;
    willChanges = 0;
    EXPECT_TRUE(store->removeForNow(account.id));
    settle();
    EXPECT_THAT(store->connections(), ElementsAre(other));
    EXPECT_THAT(storedConnections(), ElementsAre(other));
    EXPECT_EQ(kept(account.id), u"sk"_s);
    EXPECT_EQ(posts, 1);
    EXPECT_EQ(willChanges, 1);
}

TEST_F(RemovalTest, anAccountComesBackWholeAndWhereItStood) {
    const auto first = addKept(u"stripe"_s);
    const auto second = addKept(u"polar"_s);
    const auto third = addKept(u"gumroad"_s);
    secrets.takeCalls();
    EXPECT_TRUE(store->removeForNow(first.id));
    EXPECT_TRUE(store->removeForNow(second.id));
    EXPECT_TRUE(store->restore(second.id));
    EXPECT_TRUE(store->restore(first.id));
    settle();
    EXPECT_THAT(store->connections(), ElementsAre(first, second, third));
    EXPECT_THAT(storedConnections(), ElementsAre(first, second, third));
    EXPECT_TRUE(store->isReady(second));
    EXPECT_EQ(defaults.value(pendingKey), std::nullopt);
    EXPECT_THAT(secrets.takeCalls(), IsEmpty()) << "nobody is asked for a password";
    EXPECT_FALSE(store->restore(first.id)) << "it is there";
    launchAfterEnd();
    EXPECT_EQ(kept(first.id), u"sk"_s);
    EXPECT_EQ(kept(second.id), u"sk"_s);
}

TEST_F(RemovalTest, settledTheSecretGoesForGood) {
    const auto account = addKept(u"stripe"_s);
    store->removeForNow(account.id);
    store->settle(account.id, tell());
    EXPECT_THAT(told, IsEmpty());
    settle();
    EXPECT_THAT(told, ElementsAre(SecretOutcome::done));
    EXPECT_THAT(secrets.entries(), IsEmpty());
    EXPECT_EQ(defaults.value(pendingKey), std::nullopt);
    EXPECT_FALSE(store->restore(account.id));
    EXPECT_THAT(store->connections(), IsEmpty());
}

TEST_F(RemovalTest, aSettlementThatIsRefusedIsMadeUpForAtTheNextLaunch) {
    const auto account = addKept(u"stripe"_s);
    store->removeForNow(account.id);
    secrets.answer(SecretOutcome::refused);
    store->settle(account.id, tell());
    settle();
    EXPECT_THAT(told, ElementsAre(SecretOutcome::refused));
    launchAfterEnd();
    EXPECT_THAT(secrets.entries(), IsEmpty());
    EXPECT_EQ(defaults.value(pendingKey), std::nullopt);
}

TEST_F(RemovalTest, theEndOfTheProgramSettles) {
    const auto account = addKept(u"stripe"_s);
    const auto endpoint = addEndpoint(u"a"_s);
    store->removeForNow(account.id);
    store->removeForNow(endpoint.id);
    store->finish(std::chrono::milliseconds(0)); // nobody works: what is left is noted
    launchAfterEnd();
    EXPECT_EQ(kept(account.id), std::nullopt);
    EXPECT_THAT(keptEndpoints(), IsEmpty());
    EXPECT_EQ(defaults.value(pendingKey), std::nullopt);
}

TEST_F(RemovalTest, anEndInGoodOrderErasesBeforeItEnds) {
    const auto account = addKept(u"stripe"_s);
    const auto endpoint = addEndpoint(u"a"_s);
    InlineExecutor promptly;
    Keychain own(secrets, defaults);
    IntegrationsStore ending(defaults, own, notifications, loop, promptly);
    loop.drain();
    ending.removeForNow(account.id);
    ending.removeForNow(endpoint.id);
    EXPECT_TRUE(ending.finish(std::chrono::milliseconds(0)));
    EXPECT_EQ(kept(account.id), std::nullopt);
    EXPECT_THAT(keptEndpoints(), IsEmpty());
    EXPECT_EQ(defaults.value(pendingKey), std::nullopt);
}

TEST_F(RemovalTest, anEndWithoutWarningErasesAtTheNextLaunch) {
    const auto account = addKept(u"stripe"_s);
    const auto endpoint = addEndpoint(u"a"_s);
    const auto other = addEndpoint(u"b"_s);
    store->removeForNow(account.id);
    store->removeForNow(endpoint.id);
    launchAfterEnd();
    EXPECT_EQ(kept(account.id), std::nullopt);
    EXPECT_THAT(store->connections(), IsEmpty());
    EXPECT_THAT(store->customAPIs(), ElementsAre(other));
    EXPECT_THAT(keptEndpoints(), ElementsAre(other));
    EXPECT_EQ(defaults.value(pendingKey), std::nullopt);
}

TEST_F(RemovalTest, aCutAtAnyWriteOfARemovalLeavesTheAccountWholeOrGone) {
    bool wasCutOff = true;
    for (int writes = 0; wasCutOff; ++writes) {
        SCOPED_TRACE(writes);
        const auto account = addKept(u"stripe"_s);
        wasCutOff = endAfterWrites(writes, [&] { store->removeForNow(account.id); });
        launchAfterEnd();
        const bool isThere = !store->connections().empty();
        EXPECT_EQ(kept(account.id), isThere ? std::optional(u"sk"_s) : std::nullopt);
        EXPECT_TRUE(!isThere || store->isReady(account));
        EXPECT_EQ(defaults.value(pendingKey), std::nullopt);
        removeForGood(*store, account.id);
        settle();
    }
}

TEST_F(RemovalTest, aCutAtAnyWriteOfARestorationLeavesTheAccountWholeOrGone) {
    bool wasCutOff = true;
    for (int writes = 0; wasCutOff; ++writes) {
        SCOPED_TRACE(writes);
        const auto account = addKept(u"stripe"_s);
        store->removeForNow(account.id);
        settle();
        wasCutOff = endAfterWrites(writes, [&] { store->restore(account.id); });
        launchAfterEnd();
        const bool isThere = !store->connections().empty();
        EXPECT_EQ(kept(account.id), isThere ? std::optional(u"sk"_s) : std::nullopt);
        EXPECT_EQ(isThere, writes > 0);
        EXPECT_EQ(defaults.value(pendingKey), std::nullopt);
        removeForGood(*store, account.id);
        settle();
    }
}

TEST_F(RemovalTest, aCutAtAnyWriteOfASettlementLeavesNoSecret) {
    bool wasCutOff = true;
    for (int writes = 0; wasCutOff; ++writes) {
        SCOPED_TRACE(writes);
        const auto account = addKept(u"stripe"_s);
        store->removeForNow(account.id);
        settle();
        wasCutOff = endAfterWrites(writes, [&] {
            store->settle(account.id);
            settle();
        });
        launchAfterEnd();
        EXPECT_EQ(kept(account.id), std::nullopt);
        EXPECT_THAT(store->connections(), IsEmpty());
    }
}

TEST_F(RemovalTest, aSecretOnItsWayReachesAnAccountThatComesBack) {
    const auto account = add(u"stripe"_s);
    store->setSecret(u"late"_s, account.id);
    store->removeForNow(account.id);
    settle();
    store->restore(account.id);
    settle();
    EXPECT_TRUE(store->isReady(account));
    EXPECT_EQ(kept(account.id), u"late"_s);
}

TEST_F(RemovalTest, aDeletionOfWhatWasRemovedForNowIsFinal) {
    const auto account = addKept(u"stripe"_s);
    store->removeForNow(account.id);
    removeForGood(*store, account.id);
    settle();
    EXPECT_FALSE(store->restore(account.id));
    EXPECT_THAT(secrets.entries(), IsEmpty());
}

TEST_F(RemovalTest, whatIsNotThereIsNeitherRemovedNorSettled) {
    const QUuid unknown = QUuid::createUuid();
    EXPECT_FALSE(store->removeForNow(unknown));
    EXPECT_FALSE(store->restore(unknown));
    store->settle(unknown, tell());
    settle();
    EXPECT_THAT(told, ElementsAre(SecretOutcome::done));
    EXPECT_THAT(secrets.takeCalls(), IsEmpty());
    EXPECT_EQ(posts, 0);
}

TEST_F(RemovalTest, anEndpointComesBackWithItsHeadersAndNobodyIsAsked) {
    const auto first = addEndpoint(u"a"_s);
    const auto second = addEndpoint(u"b"_s);
    secrets.takeCalls();
    posts = 0;
    EXPECT_TRUE(store->removeForNow(first.id));
    settle();
    EXPECT_THAT(store->customAPIs(), ElementsAre(second));
    EXPECT_EQ(posts, 1);
    EXPECT_TRUE(store->restore(first.id));
    settle();
    EXPECT_THAT(store->customAPIs(), ElementsAre(first, second));
    EXPECT_EQ(posts, 2);
    EXPECT_THAT(secrets.takeCalls(), IsEmpty());
    EXPECT_EQ(defaults.value(pendingKey), std::nullopt);
    EXPECT_THAT(keptEndpoints(), ElementsAre(first, second));
}

TEST_F(RemovalTest, anEndpointThatIsSettledLeavesTheKeyring) {
    const auto endpoint = addEndpoint(u"a"_s);
    store->removeForNow(endpoint.id);
    settle();
    EXPECT_TRUE(defaults.boolean(existsKey)) << "the keyring has it still";
    store->settle(endpoint.id, tell());
    settle();
    EXPECT_THAT(told, ElementsAre(SecretOutcome::done));
    EXPECT_THAT(keptEndpoints(), IsEmpty());
    EXPECT_FALSE(defaults.boolean(existsKey));
    EXPECT_EQ(defaults.value(pendingKey), std::nullopt);
}

TEST_F(RemovalTest, anEndpointComesBackAfterTheListWasWrittenWithoutIt) {
    const auto endpoint = addEndpoint(u"a"_s);
    store->removeForNow(endpoint.id);
    const auto other = addEndpoint(u"b"_s);
    EXPECT_THAT(keptEndpoints(), ElementsAre(other));
    EXPECT_EQ(defaults.value(pendingKey), std::nullopt);
    store->restore(endpoint.id);
    settle();
    EXPECT_THAT(keptEndpoints(), ElementsAre(endpoint, other));
}

TEST_F(RemovalTest, aWriteThatBeganBeforeARemovalDoesNotCountForIt) {
    const auto endpoint = addEndpoint(u"a"_s);
    auto renamed = endpoint;
    renamed.name = u"renamed"_s;
    store->upsertCustomAPI(renamed); // with the endpoint, and under way
    store->removeForNow(endpoint.id);
    settle();
    EXPECT_TRUE(defaults.boolean(existsKey));
    EXPECT_TRUE(defaults.value(pendingKey)) << "the keyring has it still";
    launchAfterEnd();
    EXPECT_THAT(store->customAPIs(), IsEmpty());
    EXPECT_THAT(keptEndpoints(), IsEmpty());
}

TEST_F(RemovalTest, anEndpointThatIsAddedAnewIsNotTakenBackASecondTime) {
    const auto endpoint = addEndpoint(u"a"_s);
    store->removeForNow(endpoint.id);
    store->upsertCustomAPI(endpoint);
    settle();
    EXPECT_FALSE(store->restore(endpoint.id));
    EXPECT_THAT(store->customAPIs(), ElementsAre(endpoint));
    store->settle(endpoint.id);
    settle();
    EXPECT_THAT(keptEndpoints(), ElementsAre(endpoint));
}

} // namespace

} // namespace zeph
