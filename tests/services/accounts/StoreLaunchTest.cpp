// SPDX-License-Identifier: MIT
#include "services/accounts/StoreFixture.h"
#include "support/PrintedLines.h"

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

    /// Writes down how it was told.
    SecretDone tell() {
        return [this](SecretOutcome outcome) { told.push_back(outcome); };
    }

    /// How it was told the last time, if ever.
    std::optional<SecretOutcome> lastTold() const {
        return told.empty() ? std::nullopt : std::optional(told.back());
    }

    std::vector<SecretOutcome> told;
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

TEST_F(StoreLaunchTest, accountsThatCannotBeReadAreKeptAsideAndToldOf) {
    const std::vector<std::pair<DefaultsValue, QString>> lists = {
        {QByteArray(R"([{"name":"lost"}])"), connectionsKey + u".damaged"_s},
        {QByteArray("["), connectionsKey + u".damaged.2"_s},
        {u"[]"_s, connectionsKey + u".damaged.3"_s}};
    for (const auto &[bad, kept] : lists) {
        defaults.set(connectionsKey, bad);
        const auto printed = printedLines([this] { launchAndSettle(); });
        EXPECT_THAT(printed, SizeIs(1));
        EXPECT_TRUE(printed.join(u' ').startsWith(u"[Zeph] "_s));
        EXPECT_TRUE(printed.join(u' ').endsWith(kept));
        launchAndSettle(); // the list is kept once, however often it is read
        EXPECT_THAT(store->connections(), IsEmpty());
        const auto added = add(u"stripe"_s);
        EXPECT_THAT(storedConnections(), ElementsAre(added));
        const int writes = defaults.writes;
        launch();
        EXPECT_LE(defaults.writes, writes + 2) << "the flags of the migrations alone";
    }
    for (const auto &[bad, kept] : lists) {
        EXPECT_EQ(defaults.value(kept), bad);
    }
    EXPECT_FALSE(defaults.contains(connectionsKey + u".damaged.4"_s));
}

TEST_F(StoreLaunchTest, accountsOfAnUnknownFormAreKeptAsideBeforeAnythingIsWrittenOverThem) {
    defaults.putUnknownForm(connectionsKey);
    const auto printed = printedLines([this] { launchAndSettle(); });
    EXPECT_THAT(printed, SizeIs(1));
    EXPECT_TRUE(defaults.contains(connectionsKey));
    EXPECT_EQ(defaults.value(connectionsKey), std::nullopt) << "a migration wrote over it";
    EXPECT_TRUE(defaults.contains(connectionsKey + u".damaged"_s));
    const auto added = add(u"stripe"_s);
    EXPECT_THAT(storedConnections(), ElementsAre(added));
    EXPECT_TRUE(defaults.contains(connectionsKey + u".damaged"_s));
}

TEST_F(StoreLaunchTest, noMigrationWritesOverAccountsThatCannotBeRead) {
    const QByteArray bad = R"([{"name":"lost"}])";
    const QByteArray repaired =
        R"([{"provider":"cursor","name":"old"},{"provider":"rss","name":"n"}])";
    const auto account = QUuid::createUuid();
    secrets.put(u"com.tavi.integrations"_s, {u"stripe"_s, "sk"});
    PendingSecrets{{{u"stripe"_s, account}}, {}, {}}.save(defaults);
    defaults.set(u"zeph.integrations.dodo.configured"_s, true);
    defaults.set(connectionsKey, bad);
    launchAndSettle();
    launchAndSettle();
    EXPECT_EQ(defaults.get<QByteArray>(connectionsKey), bad);
    EXPECT_FALSE(defaults.boolean(migratedKey));
    EXPECT_FALSE(defaults.boolean(u"zeph.integrations.removedCursor"_s));
    EXPECT_THAT(PendingSecrets::read(defaults).moves, SizeIs(1)) << "its account may come back";
    defaults.set(connectionsKey, repaired);
    launchAndSettle();
    EXPECT_THAT(store->connections(), SizeIs(1)) << "the clean-up is made up for";
    EXPECT_TRUE(defaults.boolean(migratedKey));
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

TEST_F(StoreLaunchTest, endpointsThatCannotBeReadAreNoneAndKeptAside) {
    secrets.put(u"com.tavi.integrations"_s, {u"custom_apis"_s, R"([{"id":7}])"});
    defaults.set(existsKey, true);
    const auto printed = printedLines([this] { launchAndSettle(); });
    EXPECT_THAT(printed, SizeIs(1));
    EXPECT_TRUE(printed.join(u' ').startsWith(u"[Zeph] "_s));
    EXPECT_THAT(store->customAPIs(), IsEmpty());
    store->upsertCustomAPI(first);
    settle();
    EXPECT_THAT(
        secrets.entries(),
        ElementsAre(u"com.tavi.integrations custom_apis.damaged=[{\"id\":7}]"_s,
                    u"com.tavi.integrations custom_apis="_s +
                        QString::fromUtf8(coding::json(std::vector<CustomAPIConfig>{first}))));
}

TEST_F(StoreLaunchTest, endpointsThatWereKeptAsideBeforeAreNotOverwritten) {
    defaults.set(existsKey, true);
    for (const QByteArray &bad :
         {QByteArray("first"), QByteArray("second"), QByteArray("second")}) {
        secrets.remove(u"com.tavi.integrations"_s, u"custom_apis"_s);
        secrets.put(u"com.tavi.integrations"_s, {u"custom_apis"_s, bad});
        EXPECT_THAT(printedLines([this] { launchAndSettle(); }), SizeIs(1));
    }
    EXPECT_THAT(secrets.entries(), testing::UnorderedElementsAre(
                                       u"com.tavi.integrations custom_apis=second"_s,
                                       u"com.tavi.integrations custom_apis.damaged=first"_s,
                                       u"com.tavi.integrations custom_apis.damaged.2=second"_s));
}

TEST_F(StoreLaunchTest, endpointsThatCouldNotBeKeptAsideAreNotOverwritten) {
    secrets.put(u"com.tavi.integrations"_s, {u"custom_apis"_s, "bad"});
    defaults.set(existsKey, true);
    secrets.setHook([this](const QString &call) {
        secrets.answer(call.startsWith(u"add") ? SecretOutcome::refused : SecretOutcome::done);
    });
    printedLines([this] { launchAndSettle(); });
    secrets.setHook({});
    secrets.answer(SecretOutcome::done);
    printedLines([this] {
        store->loadCustomAPIs();
        settle();
    });
    store->upsertCustomAPI(first);
    settle();
    EXPECT_THAT(secrets.entries(),
                testing::Contains(u"com.tavi.integrations custom_apis.damaged=bad"_s));
}

TEST_F(StoreLaunchTest, endpointsAreNotEditedBeforeTheyCameIn) {
    keep({first, second});
    launch();
    const auto before = secrets.entries();
    const CustomAPIConfig third{QUuid::createUuid(), u"third"_s, u"https://c.org"_s, {}, {}};
    store->upsertCustomAPI(third, tell());
    EXPECT_FALSE(store->removeForNow(first.id));
    EXPECT_THAT(told, IsEmpty()) << "told within the call";
    settle();
    EXPECT_THAT(told, ElementsAre(SecretOutcome::refused));
    EXPECT_THAT(store->customAPIs(), ElementsAre(first, second));
    EXPECT_EQ(secrets.entries(), before);
    EXPECT_EQ(defaults.value(u"zeph.integrations.pendingSecrets"_s), std::nullopt);
    store->upsertCustomAPI(third, tell());
    settle();
    EXPECT_EQ(lastTold(), SecretOutcome::done);
    launchAndSettle();
    EXPECT_THAT(store->customAPIs(), ElementsAre(first, second, third));
}

TEST_F(StoreLaunchTest, endpointsThatWereRefusedAreNotNone) {
    keep({first, second});
    const auto before = secrets.entries();
    for (const auto outcome : {SecretOutcome::refused, SecretOutcome::unavailable}) {
        secrets.answer(outcome);
        launchAndSettle();
        store->upsertCustomAPI({QUuid::createUuid(), u"n"_s, u"https://c.org"_s, {}, {}}, tell());
        settle();
        EXPECT_EQ(lastTold(), outcome);
        EXPECT_FALSE(store->removeForNow(first.id));
        EXPECT_EQ(secrets.entries(), before);
        EXPECT_TRUE(defaults.boolean(existsKey));
    }
}

TEST_F(StoreLaunchTest, endpointsThatWereRefusedComeInWhenTheyAreAskedForAgain) {
    keep({first, second});
    secrets.answer(SecretOutcome::refused);
    launchAndSettle();
    secrets.answer(SecretOutcome::done);
    store->upsertCustomAPI(first, tell());
    settle();
    EXPECT_THAT(told, ElementsAre(SecretOutcome::refused));
    EXPECT_THAT(store->customAPIs(), ElementsAre(first, second));
    removeForGood(*store, first.id, tell());
    settle();
    EXPECT_EQ(lastTold(), SecretOutcome::done);
    EXPECT_THAT(store->customAPIs(), ElementsAre(second));
    secrets.takeCalls();
    store->loadCustomAPIs();
    EXPECT_EQ(executor.waiting(), 0U) << "they are loaded";
}

TEST_F(StoreLaunchTest, aNoteOfAnEndpointThatIsGoneAnywayIsDropped) {
    keep({first});
    PendingSecrets{{}, {}, {second.id}}.save(defaults);
    launchAndSettle();
    EXPECT_THAT(store->customAPIs(), ElementsAre(first));
    EXPECT_EQ(defaults.value(u"zeph.integrations.pendingSecrets"_s), std::nullopt);
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
