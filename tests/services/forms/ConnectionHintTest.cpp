// SPDX-License-Identifier: MIT
#include "services/forms/ConnectionHint.h"

#include "services/catalogue/ServiceCatalogue.h"
#include "services/forms/FormsFixture.h"

#include <set>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

using enum WidgetKind;

class ConnectionHintTest : public FormsFixture {
protected:
    bool needsHint(WidgetKind kind) const { return needsConnectionHint(kind, preferences, *store); }
};

TEST_F(ConnectionHintTest, standsUnderEveryWidgetOfAnOfferedServiceWithoutAnAccount) {
    std::set<WidgetKind> expected = {customAPIs};
    for (const ServiceRow &row : serviceCatalogue()) {
        if (row.words) {
            expected.insert(*row.widget);
        }
    }
    for (const WidgetKind kind : allWidgetKinds()) {
        preferences.set(WidgetPlacement::always, kind);
        EXPECT_EQ(needsHint(kind), expected.contains(kind)) << rawValue(kind).toStdString();
    }
}

TEST_F(ConnectionHintTest, standsUnderNoWidgetThatIsOff) {
    store->setQuoteEnabled(false);
    for (const WidgetKind kind : allWidgetKinds()) {
        preferences.set(WidgetPlacement::off, kind);
        EXPECT_FALSE(needsHint(kind)) << rawValue(kind).toStdString();
    }
}

TEST_F(ConnectionHintTest, goesWithTheFirstAccountAndComesBackWithoutAny) {
    EXPECT_TRUE(needsHint(revenue));
    const auto account = add(u"stripe"_s);
    EXPECT_FALSE(needsHint(revenue));
    EXPECT_TRUE(needsHint(polar));
    removeForGood(*store, account.id);
    EXPECT_TRUE(needsHint(revenue));
}

TEST_F(ConnectionHintTest, standsUnderTheQuoteWhileItIsSwitchedOff) {
    EXPECT_FALSE(needsHint(quote));
    store->setQuoteEnabled(false);
    EXPECT_TRUE(needsHint(quote));
}

TEST_F(ConnectionHintTest, goesWithTheFirstEndpoint) {
    EXPECT_TRUE(needsHint(customAPIs));
    store->upsertCustomAPI({QUuid::createUuid(), u"n"_s, u"https://a.org"_s, {}, {}});
    EXPECT_FALSE(needsHint(customAPIs));
    settle();
    secrets.answer(SecretOutcome::refused);
    launchAfterEnd();
    EXPECT_FALSE(needsHint(customAPIs));
}

TEST_F(ConnectionHintTest, isNotGivenForEndpointsThatALockedKeyringHides) {
    store->upsertCustomAPI({QUuid::createUuid(), u"n"_s, u"https://a.org"_s, {}, {}});
    settle();
    secrets.answer(SecretOutcome::refused);
    launchAndSettle();
    ASSERT_TRUE(store->customAPIs().empty());
    EXPECT_FALSE(needsHint(customAPIs));
}

TEST_F(ConnectionHintTest, hasItsWords) {
    EXPECT_EQ(connectionHint(), u"Add this in Integrations to show it on your wallpaper."_s);
}

} // namespace

} // namespace zeph
