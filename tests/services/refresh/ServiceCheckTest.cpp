// SPDX-License-Identifier: MIT
#include "services/refresh/ServiceCheck.h"

#include "base/DescribedError.h"
#include "services/refresh/RefreshFixture.h"

#include <new>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace zeph {

namespace {

class ServiceCheckTest : public RefreshFixture {
protected:
    /// Asks for the only account and returns the records that were told.
    std::vector<std::optional<AccountRecord>> askAccount() {
        launch();
        std::vector<std::optional<AccountRecord>> told;
        makeCheck().ask(owner, accounts.front(),
                        [&](const auto &record) { told.push_back(record); });
        executor.runAll();
        EXPECT_THAT(told, IsEmpty()) << "told off the main thread";
        loop.drain();
        return told;
    }

    ServiceCheck makeCheck() { return {background, {services(), *store, keychain}}; }

    WorkOwner owner;
    CustomAPIConfig endpoint{QUuid::createUuid(), u"Signups"_s, u"https://a.org"_s, {}, {}};
};

TEST_F(ServiceCheckTest, tellsTheStampedRecordOfAnAccountAndPublishesNothing) {
    connect(u"stripe"_s, u"sk"_s);
    const auto told = askAccount();
    ASSERT_EQ(told.size(), 1U);
    ASSERT_TRUE(told.front());
    const auto &record = std::get<StripeStats>(*told.front());
    EXPECT_EQ(record.connectionId, accounts.front().id);
    EXPECT_EQ(record.label, u"My stripe"_s);
    EXPECT_EQ(record.todayRevenueCents, 100);
    EXPECT_THAT(calls, ElementsAre(u"stripe sk"_s));
    EXPECT_THAT(*state.stripeStats, IsEmpty());
}

TEST_F(ServiceCheckTest, tellsThatAnAccountLacksSomething) {
    connect(u"plausible"_s, std::nullopt, u"a.org"_s);
    EXPECT_THAT(askAccount(), ElementsAre(std::nullopt));
    EXPECT_THAT(calls, IsEmpty());
}

TEST_F(ServiceCheckTest, tellsOfAKeyringThatFailsToo) {
    connect(u"stripe"_s, std::nullopt);
    secrets.setHook([](const QString &) { throw std::bad_alloc(); });
    EXPECT_THAT(askAccount(), ElementsAre(std::nullopt));
}

TEST_F(ServiceCheckTest, tellsTheFailureOfAService) {
    connect(u"polar"_s, u"k"_s);
    onCall = [](const QString &) { throw DescribedError(u"It broke."_s); };
    const auto told = askAccount();
    ASSERT_TRUE(told.size() == 1 && told.front());
    EXPECT_EQ(std::get<SimpleIntegrationStats>(*told.front()).error, u"It broke."_s);
}

TEST_F(ServiceCheckTest, listsWhatAnEndpointHas) {
    launch();
    std::vector<EndpointListing> told;
    makeCheck().ask(owner, endpoint, [&](const auto &listing) { told.push_back(listing); });
    executor.runAll();
    loop.drain();
    EXPECT_THAT(calls, ElementsAre(u"list https://a.org"_s));
    EXPECT_THAT(told, ElementsAre(EndpointListing{{{u"a.b"_s, u"Signups"_s}}, std::nullopt}));
}

TEST_F(ServiceCheckTest, tellsWhyAnEndpointCouldNotBeListed) {
    launch();
    onCall = [](const QString &) { throw DescribedError(u"It broke."_s); };
    std::vector<EndpointListing> told;
    makeCheck().ask(owner, endpoint, [&](const auto &listing) { told.push_back(listing); });
    executor.runAll();
    loop.drain();
    EXPECT_THAT(told, ElementsAre(EndpointListing{{}, u"It broke."_s}));
}

TEST_F(ServiceCheckTest, tellsNothingOnceWhoAskedHasEnded) {
    connect(u"stripe"_s, u"sk"_s);
    launch();
    auto asking = std::make_unique<WorkOwner>();
    const ServiceCheck check = makeCheck();
    check.ask(*asking, accounts.front(), [](const auto &) { ADD_FAILURE() << "told"; });
    check.ask(*asking, endpoint, [](const auto &) { ADD_FAILURE() << "told"; });
    executor.runAll();
    asking.reset();
    loop.drain();
    EXPECT_EQ(calls.size(), 2);
}

} // namespace

} // namespace zeph
