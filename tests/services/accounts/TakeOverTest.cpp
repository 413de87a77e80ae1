// SPDX-License-Identifier: MIT
#include "services/accounts/StoreFixture.h"

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::SizeIs;

namespace zeph {

namespace {

/// Accounts that come from elsewhere.
class TakeOverTest : public StoreFixture {
protected:
    TakeOverTest() { launchAndSettle(); }

    static IntegrationConnection foreign(const QString &provider, const QString &extra = {}) {
        IntegrationConnection account{QUuid::createUuid(), provider, u"Elsewhere"_s};
        account.extra = extra;
        return account;
    }
};

TEST_F(TakeOverTest, appendsAnAccountThatWaitsForItsKey) {
    const auto first = add(u"polar"_s);
    const auto account = foreign(u"stripe"_s);
    EXPECT_EQ(store->takeOver(account), account);
    EXPECT_THAT(storedConnections(), ElementsAre(first, account));
    EXPECT_FALSE(store->isReady(account));
    store->setSecret(u"sk"_s, account.id);
    settle();
    EXPECT_TRUE(store->isReady(account));
}

TEST_F(TakeOverTest, isReadyWhereNoKeyIsNeeded) {
    for (const auto &provider : {u"reddit"_s, u"rss"_s, u"github"_s}) {
        const auto account = store->takeOver(foreign(provider, u"brindle"_s));
        EXPECT_TRUE(store->isReady(account)) << provider.toStdString();
    }
    EXPECT_FALSE(store->isReady(store->takeOver(foreign(u"reddit"_s, u" "_s))));
    EXPECT_FALSE(store->isReady(store->takeOver(foreign(u"my shop"_s))));
}

TEST_F(TakeOverTest, replacesTheAccountThatIsHereAndKeepsItsKey) {
    auto account = add(u"stripe"_s);
    store->setSecret(u"sk"_s, account.id);
    settle();
    account.name = u"Elsewhere"_s;
    account.enabled = false;
    store->takeOver(account);
    EXPECT_THAT(storedConnections(), ElementsAre(account));
    EXPECT_TRUE(store->isReady(account));
}

TEST_F(TakeOverTest, neverGivesAKeyToAnotherService) {
    const auto own = add(u"stripe"_s);
    store->setSecret(u"sk"_s, own.id);
    settle();
    auto account = foreign(u"polar"_s);
    account.id = own.id;
    const auto taken = store->takeOver(account);
    EXPECT_NE(taken.id, own.id);
    EXPECT_THAT(store->connections(), ElementsAre(own, taken));
    EXPECT_FALSE(store->isReady(taken));
}

TEST_F(TakeOverTest, theMarkThatADeletedAccountLeftDoesNotMakeItReady) {
    const auto own = add(u"stripe"_s);
    store->setSecret(u"sk"_s, own.id);
    settle();
    removeForGood(*store, own.id);
    settle();
    ASSERT_TRUE(store->hasSecret(own.id));
    store->takeOver(own);
    EXPECT_THAT(store->connections(), SizeIs(1));
    EXPECT_FALSE(store->isReady(own));
}

TEST_F(TakeOverTest, bringsBackWhatWasRemovedForNow) {
    const auto own = add(u"stripe"_s);
    store->setSecret(u"sk"_s, own.id);
    settle();
    store->removeForNow(own.id);
    auto renamed = own;
    renamed.name = u"Elsewhere"_s;
    store->takeOver(renamed);
    store->settle(own.id); // the time for it is over, and means nothing any more
    settle();
    EXPECT_THAT(store->connections(), ElementsAre(renamed));
    EXPECT_TRUE(store->isReady(renamed));
    EXPECT_THAT(secrets.entries(), SizeIs(1));
}

TEST_F(TakeOverTest, leavesWhatWasRemovedForNowToItsOwnService) {
    const auto own = add(u"stripe"_s);
    store->setSecret(u"sk"_s, own.id);
    settle();
    store->removeForNow(own.id);
    auto account = foreign(u"polar"_s);
    account.id = own.id;
    const auto taken = store->takeOver(account);
    EXPECT_NE(taken.id, own.id);
    store->restore(own.id);
    EXPECT_THAT(store->connections(), ElementsAre(own, taken));
}

} // namespace

} // namespace zeph
