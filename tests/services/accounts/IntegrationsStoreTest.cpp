// SPDX-License-Identifier: MIT
#include "services/accounts/StoreFixture.h"

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace zeph {

namespace {

class IntegrationsStoreTest : public StoreFixture {
protected:
    IntegrationsStoreTest() { launchAndSettle(); }
};

TEST_F(IntegrationsStoreTest, aFirstAccountWithABlankNameIsCalledAfterItsService) {
    EXPECT_EQ(store->addConnection(u"stripe"_s, u" \n"_s, std::nullopt).name, u"Stripe"_s);
    EXPECT_EQ(add(u"stripe"_s).name, u"Stripe 2"_s);
    EXPECT_EQ(add(u"stripe"_s).name, u"Stripe 3"_s);
    EXPECT_EQ(add(u"github"_s).name, u"GitHub"_s);
}

TEST_F(IntegrationsStoreTest, defaultNamesCountAccountsAndDoNotLookAtNames) {
    add(u"stripe"_s);
    const auto second = add(u"stripe"_s);
    add(u"stripe"_s);
    store->deleteConnection(second.id);
    EXPECT_EQ(add(u"stripe"_s).name, u"Stripe 3"_s);
    EXPECT_THAT(store->connections(u"stripe"_s), SizeIs(3));
}

TEST_F(IntegrationsStoreTest, unknownServicesAreCalledByTheirCapitalisedKey) {
    EXPECT_EQ(add(u"vercel"_s).name, u"Vercel"_s);
    EXPECT_EQ(add(u"coingecko"_s).name, u"Crypto"_s);
}

TEST_F(IntegrationsStoreTest, aNewAccountIsTrimmedAppendedSavedAndTold) {
    const auto first = add(u"rss"_s);
    const auto added = store->addConnection(u"github"_s, u" My work\n"_s, u"\t octo \n"_s);
    IntegrationConnection expected;
    expected.id = added.id;
    expected.provider = u"github"_s;
    expected.name = u"My work"_s;
    expected.extra = u"octo"_s;
    EXPECT_EQ(added, expected);
    EXPECT_FALSE(added.id.isNull());
    EXPECT_NE(added.id, first.id);
    EXPECT_THAT(store->connections(), ElementsAre(first, added));
    EXPECT_THAT(storedConnections(), ElementsAre(first, added));
    EXPECT_EQ(willChanges, 2);
    EXPECT_EQ(posts, 0) << "told within the call";
    loop.drain();
    EXPECT_EQ(posts, 2);
}

TEST_F(IntegrationsStoreTest, anExtraThatIsBlankStaysAnEmptyExtra) {
    EXPECT_EQ(add(u"dodo"_s, u"  "_s).extra, u""_s);
    EXPECT_EQ(add(u"dodo"_s).extra, std::nullopt);
}

TEST_F(IntegrationsStoreTest, theChangeIsAnnouncedBeforeItHappens) {
    std::size_t countAtSignal = 7;
    const auto subscription =
        store->objectWillChange.subscribe([&] { countAtSignal = store->connections().size(); });
    add(u"stripe"_s);
    EXPECT_EQ(countAtSignal, 0U);
    EXPECT_THAT(store->connections(), SizeIs(1));
}

TEST_F(IntegrationsStoreTest, accountsOfAServiceAreFoundByExactTextInStoredOrder) {
    const auto b = store->addConnection(u"rss"_s, u"b"_s, std::nullopt);
    add(u"RSS"_s);
    const auto a = store->addConnection(u"rss"_s, u"a"_s, std::nullopt);
    EXPECT_THAT(store->connections(u"rss"_s), ElementsAre(b, a));
    EXPECT_THAT(store->connections(u"stripe"_s), IsEmpty());
}

TEST_F(IntegrationsStoreTest, anUpdateReplacesSavesAndTells) {
    add(u"stripe"_s);
    auto changed = add(u"github"_s);
    loop.drain();
    posts = willChanges = 0;
    changed.name = u"Renamed"_s;
    changed.enabled = false;
    store->updateConnection(changed);
    EXPECT_EQ(store->connections().at(1), changed);
    EXPECT_EQ(storedConnections().at(1), changed);
    loop.drain();
    EXPECT_EQ(posts, 1);
    EXPECT_EQ(willChanges, 1);
}

TEST_F(IntegrationsStoreTest, anUpdateOfAnUnknownAccountDoesNothingAtAll) {
    const auto known = add(u"stripe"_s);
    settle();
    posts = willChanges = 0;
    const int writes = defaults.writes;
    IntegrationConnection stranger = known;
    stranger.id = QUuid::createUuid();
    store->updateConnection(stranger);
    settle();
    EXPECT_THAT(store->connections(), ElementsAre(known));
    EXPECT_EQ(posts, 0);
    EXPECT_EQ(willChanges, 0);
    EXPECT_EQ(defaults.writes, writes);
}

TEST_F(IntegrationsStoreTest, aDeletionTakesTheSecretAlongAndLeavesTheFlagBehind) {
    const auto kept = add(u"stripe"_s);
    const auto gone = add(u"stripe"_s);
    store->setSecret(u"sk"_s, gone.id);
    settle();
    secrets.takeCalls();
    posts = 0;
    store->deleteConnection(gone.id);
    EXPECT_THAT(store->connections(), ElementsAre(kept));
    EXPECT_THAT(storedConnections(), ElementsAre(kept));
    EXPECT_EQ(posts, 0);
    settle();
    EXPECT_EQ(posts, 1);
    EXPECT_THAT(secrets.takeCalls(),
                ElementsAre(call("remove", gone.id), legacyCall("remove", gone.id)));
    EXPECT_THAT(secrets.entries(), IsEmpty());
    EXPECT_EQ(keychain->get(secretAccount(gone.id)).value, std::nullopt);
    EXPECT_TRUE(defaults.boolean(configuredKey(gone.id)));
}

TEST_F(IntegrationsStoreTest, aDeletionTakesEveryEntryWithThatId) {
    const IntegrationConnection one{QUuid::createUuid(), u"rss"_s, u"one"_s};
    IntegrationConnection twin = one;
    twin.name = u"twin"_s;
    const IntegrationConnection other{QUuid::createUuid(), u"rss"_s, u"other"_s};
    stored({one, other, twin});
    launchAndSettle();
    store->deleteConnection(one.id);
    EXPECT_THAT(store->connections(), ElementsAre(other));
}

TEST_F(IntegrationsStoreTest, endpointsAreAppendedReplacedInPlaceAndRemoved) {
    const CustomAPIConfig first{QUuid::createUuid(), u"first"_s, u"https://a.org"_s, {}, {}};
    CustomAPIConfig second{QUuid::createUuid(), u"second"_s, u"https://b.org"_s, {}, {}};
    store->upsertCustomAPI(first);
    store->upsertCustomAPI(second);
    EXPECT_THAT(store->customAPIs(), ElementsAre(first, second));
    CustomAPIConfig renamed = first;
    renamed.name = u"renamed"_s;
    store->upsertCustomAPI(renamed);
    EXPECT_THAT(store->customAPIs(), ElementsAre(renamed, second));
    EXPECT_EQ(willChanges, 3);
    settle();
    EXPECT_EQ(posts, 3);
    store->deleteCustomAPI(first.id);
    EXPECT_THAT(store->customAPIs(), ElementsAre(second));
    settle();
    EXPECT_EQ(posts, 4);
    EXPECT_THAT(secrets.entries(),
                ElementsAre(u"com.tavi.integrations custom_apis="_s +
                            QString::fromUtf8(coding::json(std::vector<CustomAPIConfig>{second}))));
}

TEST_F(IntegrationsStoreTest, savingEndpointsWritesTheWholeListAndTheFlag) {
    const CustomAPIConfig config{
        QUuid::createUuid(), u"n"_s, u"u"_s, {{QUuid::createUuid(), u"X-Key"_s, u"s3cret"_s}}, {}};
    store->upsertCustomAPI(config);
    settle();
    EXPECT_THAT(secrets.takeCalls(), ElementsAre(u"add com.tavi.integrations custom_apis"_s,
                                                 u"remove com.zeph.integrations custom_apis"_s));
    EXPECT_EQ(defaults.get<bool>(u"zeph.integrations.custom.exists"_s), true);
    launch();
    settle();
    EXPECT_THAT(store->customAPIs(), ElementsAre(config));
}

TEST_F(IntegrationsStoreTest, anEmptyListOfEndpointsIsWrittenAsOneAndClearsTheFlag) {
    const CustomAPIConfig config{QUuid::createUuid(), u"n"_s, u"u"_s, {}, {}};
    store->upsertCustomAPI(config);
    store->deleteCustomAPI(config.id);
    settle();
    EXPECT_THAT(secrets.entries(), ElementsAre(u"com.tavi.integrations custom_apis=[]"_s));
    EXPECT_EQ(defaults.get<bool>(u"zeph.integrations.custom.exists"_s), false);
}

TEST_F(IntegrationsStoreTest, aRemovedEndpointStaysRemovedWhenTheKeyringWasNotReached) {
    const CustomAPIConfig first{QUuid::createUuid(), u"first"_s, u"https://a.org"_s, {}, {}};
    const CustomAPIConfig second{QUuid::createUuid(), u"second"_s, u"https://b.org"_s, {}, {}};
    store->upsertCustomAPI(first);
    store->upsertCustomAPI(second);
    settle();
    store->deleteCustomAPI(first.id);
    launchAfterEnd();
    EXPECT_THAT(store->customAPIs(), ElementsAre(second));
    EXPECT_FALSE(secrets.entries().join(u' ').contains(u"a.org"_s));
    store->deleteCustomAPI(second.id);
    launchAfterEnd();
    EXPECT_THAT(store->customAPIs(), IsEmpty());
    EXPECT_THAT(secrets.entries(), ElementsAre(u"com.tavi.integrations custom_apis=[]"_s));
    EXPECT_EQ(defaults.get<bool>(u"zeph.integrations.custom.exists"_s), false);
    EXPECT_EQ(defaults.value(u"zeph.integrations.pendingSecrets"_s), std::nullopt);
}

TEST_F(IntegrationsStoreTest, anEndpointThatCameBackIsNotRemovedLater) {
    const CustomAPIConfig config{QUuid::createUuid(), u"n"_s, u"u"_s, {}, {}};
    store->upsertCustomAPI(config);
    settle();
    store->deleteCustomAPI(config.id);
    store->upsertCustomAPI(config);
    launchAfterEnd();
    EXPECT_THAT(store->customAPIs(), ElementsAre(config));
}

TEST_F(IntegrationsStoreTest, theQuoteIsStoredAndTold) {
    EXPECT_TRUE(store->quoteEnabled());
    bool atSignal = false;
    const auto subscription =
        store->objectWillChange.subscribe([&] { atSignal = store->quoteEnabled(); });
    store->setQuoteEnabled(false);
    EXPECT_TRUE(atSignal);
    EXPECT_FALSE(store->quoteEnabled());
    EXPECT_EQ(defaults.get<bool>(u"zeph.integrations.quote.enabled"_s), false);
    EXPECT_EQ(posts, 0);
    loop.drain();
    EXPECT_EQ(posts, 1);
}

TEST_F(IntegrationsStoreTest, nothingIsToldOnceTheStoreIsGone) {
    const auto added = add(u"stripe"_s);
    store->setSecret(u"sk"_s, added.id);
    store.reset();
    settle();
    EXPECT_EQ(posts, 0);
    EXPECT_EQ(secrets.entries().size(), 1) << "the secret was given, so it is kept";
}

} // namespace

} // namespace zeph
