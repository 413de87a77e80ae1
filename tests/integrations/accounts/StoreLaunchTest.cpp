// SPDX-License-Identifier: MIT
#include "integrations/accounts/StoreFixture.h"

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace zeph {

namespace {

const auto connectionsKey = u"zeph.integrations.connections"_s;
const auto existsKey = u"zeph.integrations.custom.exists"_s;
const auto migratedKey = u"zeph.integrations.v2"_s;

class StoreLaunchTest : public StoreFixture {
protected:
    void keep(const std::vector<CustomAPIConfig> &configs) {
        defaults.set(existsKey, true);
        secrets.put(u"com.tavi.integrations"_s, {u"custom_apis"_s, coding::json(configs)});
    }

    const CustomAPIConfig first{QUuid::createUuid(), u"first"_s, u"https://a.org"_s, {}, {}};
    const CustomAPIConfig second{QUuid::createUuid(), u"second"_s, u"https://b.org"_s, {}, {}};
};

TEST_F(StoreLaunchTest, theFirstLaunchHasNothingAndTouchesNoSecret) {
    launch();
    EXPECT_THAT(store->connections(), IsEmpty());
    EXPECT_THAT(store->customAPIs(), IsEmpty());
    EXPECT_TRUE(store->quoteEnabled());
    settle();
    EXPECT_THAT(secrets.takeCalls(), IsEmpty());
    EXPECT_THAT(storedConnections(), IsEmpty());
    EXPECT_TRUE(defaults.boolean(migratedKey));
    EXPECT_TRUE(defaults.boolean(u"zeph.integrations.removedCursor"_s));
}

TEST_F(StoreLaunchTest, theQuoteIsOnUnlessABooleanSaysOtherwise) {
    const auto key = u"zeph.integrations.quote.enabled"_s;
    for (const auto &[value, expected] : std::vector<std::pair<DefaultsValue, bool>>{
             {false, false}, {true, true}, {u"false"_s, true}, {0.0, true}}) {
        defaults.set(key, value);
        launch();
        EXPECT_EQ(store->quoteEnabled(), expected);
    }
}

TEST_F(StoreLaunchTest, accountsComeBackAsTheyWere) {
    const std::vector<IntegrationConnection> accounts = {
        {QUuid::createUuid(), u"rss"_s, u"b"_s, false, u"https://a.org"_s},
        {QUuid::createUuid(), u"stripe"_s, u"a"_s}};
    stored(accounts);
    launch();
    EXPECT_EQ(store->connections(), accounts);
}

TEST_F(StoreLaunchTest, aRecordWithoutAProviderLosesTheListButNotTheStoredBytes) {
    defaults.set(migratedKey, true);
    const QByteArray bad = R"([{"name":"lost"},{"provider":"rss","name":"too"}])";
    defaults.set(connectionsKey, bad);
    launchAndSettle();
    EXPECT_THAT(store->connections(), IsEmpty());
    EXPECT_EQ(defaults.get<QByteArray>(connectionsKey), bad);
    const auto added = add(u"stripe"_s);
    EXPECT_THAT(storedConnections(), ElementsAre(added));
}

TEST_F(StoreLaunchTest, accountsOfAnotherTypeAreNone) {
    defaults.set(migratedKey, true);
    defaults.set(connectionsKey, u"[]"_s);
    launch();
    EXPECT_THAT(store->connections(), IsEmpty());
}

TEST_F(StoreLaunchTest, aSecondLaunchRunsNeitherMigration) {
    stored({{QUuid::createUuid(), u"cursor"_s, u"Old"_s}});
    defaults.set(migratedKey, true);
    defaults.set(u"zeph.integrations.removedCursor"_s, true);
    defaults.set(u"zeph.integrations.stripe.configured"_s, true);
    const int writes = defaults.writes;
    launch();
    settle();
    EXPECT_THAT(store->connections(), SizeIs(1));
    EXPECT_EQ(defaults.writes, writes);
    EXPECT_THAT(secrets.takeCalls(), IsEmpty());
    EXPECT_EQ(posts, 0);
}

TEST_F(StoreLaunchTest, withoutTheFlagEndpointsAreNotLookedFor) {
    keep({first});
    defaults.set(existsKey, false);
    launch();
    settle();
    EXPECT_THAT(store->customAPIs(), IsEmpty());
    EXPECT_THAT(secrets.takeCalls(), IsEmpty());
}

TEST_F(StoreLaunchTest, endpointsComeInFromTheKeychainAndAreToldAlone) {
    int loads = 0;
    const auto loaded =
        notifications.observe(notifications::zephCustomAPIsLoaded, [&loads] { ++loads; });
    keep({first, second});
    defaults.set(migratedKey, true);
    launch();
    EXPECT_THAT(store->customAPIs(), IsEmpty());
    EXPECT_EQ(willChanges, 0);
    settle();
    EXPECT_THAT(secrets.takeCalls(), ElementsAre(u"copy com.tavi.integrations custom_apis"_s));
    EXPECT_THAT(store->customAPIs(), ElementsAre(first, second));
    EXPECT_EQ(willChanges, 1);
    EXPECT_EQ(loads, 1);
    EXPECT_EQ(posts, 0) << "every account would be asked twice at every launch";
}

TEST_F(StoreLaunchTest, endpointsThatCannotBeReadAreNone) {
    secrets.put(u"com.tavi.integrations"_s, {u"custom_apis"_s, R"([{"id":7}])"});
    defaults.set(existsKey, true);
    launchAndSettle();
    EXPECT_THAT(store->customAPIs(), IsEmpty());
    EXPECT_EQ(secrets.entries().size(), 1);
}

TEST_F(StoreLaunchTest, endpointsEditedBeforeTheyCameInAreNotLost) {
    keep({first, second});
    launch();
    const CustomAPIConfig third{QUuid::createUuid(), u"third"_s, u"https://c.org"_s, {}, {}};
    CustomAPIConfig renamed = second;
    renamed.name = u"renamed"_s;
    store->upsertCustomAPI(third);
    store->upsertCustomAPI(renamed);
    store->deleteCustomAPI(first.id);
    EXPECT_THAT(store->customAPIs(), ElementsAre(third, renamed));
    settle();
    EXPECT_THAT(store->customAPIs(), ElementsAre(renamed, third));
    launchAndSettle();
    EXPECT_THAT(store->customAPIs(), ElementsAre(renamed, third));
    EXPECT_TRUE(defaults.boolean(existsKey));
}

TEST_F(StoreLaunchTest, aStoreThatIsGoneTakesNoEndpoints) {
    keep({first});
    launch();
    executor.runAll();
    store.reset();
    loop.drain();
    EXPECT_EQ(posts, 0);
}

} // namespace

} // namespace zeph
