// SPDX-License-Identifier: MIT
#include "services/forms/AccountForm.h"

#include "services/forms/FormsFixture.h"

using namespace Qt::StringLiterals;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

namespace zeph {

namespace {

const auto placementsKey = u"zeph.widgets.placements"_s;
const auto sizesKey = u"zeph.widgets.sizes"_s;

class AccountFormTest : public FormsFixture {
protected:
    /// Whether a new account of a service can be saved with these inputs.
    bool canSaveNew(const QString &provider, const QString &value, const QString &secret) {
        AccountForm form{add(provider), secret};
        form.account.extra = value;
        return canSave(form, *store);
    }

    /// Whether one that is ready can be.
    bool canSaveReady(const QString &provider, const QString &value, const QString &secret) {
        AccountForm form{addReady(provider, u"value"_s), secret};
        form.account.extra = value;
        return canSave(form, *store);
    }

    void save(const AccountForm &form) {
        saveAccount(form, *store, preferences,
                    [this](SecretOutcome outcome) { told.push_back(outcome); });
    }

    /// Saves an account of a service with a value and a key, and lets everything happen.
    IntegrationConnection saved(const QString &provider, const QString &value = {},
                                const QString &secret = {}) {
        AccountForm form{add(provider), secret};
        form.account.extra = value;
        save(form);
        settle();
        return form.account;
    }

    QByteArray stored(const QString &key) const {
        return defaults.get<QByteArray>(key).value_or("absent");
    }

    std::vector<SecretOutcome> told;
};

TEST_F(AccountFormTest, aServiceWithoutAKeyNeedsItsValueAlone) {
    for (const auto &provider : {u"ahrefs"_s, u"coingecko"_s, u"hackernews"_s, u"reddit"_s,
                                 u"producthunt"_s, u"bluesky"_s, u"currency"_s, u"rss"_s}) {
        EXPECT_TRUE(canSaveNew(provider, u"brindle"_s, {})) << provider.toStdString();
        EXPECT_FALSE(canSaveNew(provider, u" "_s, {})) << provider.toStdString();
        EXPECT_FALSE(canSaveReady(provider, {}, {})) << provider.toStdString();
    }
}

TEST_F(AccountFormTest, gitHubNeedsAUserNameAndNoToken) {
    EXPECT_TRUE(canSaveNew(u"github"_s, u"octavia"_s, {}));
    EXPECT_TRUE(canSaveNew(u"github"_s, u"octavia"_s, u"ghp_1"_s));
    EXPECT_FALSE(canSaveNew(u"github"_s, u"  "_s, u"ghp_1"_s));
}

TEST_F(AccountFormTest, aServiceWithAKeyAndAValueNeedsBoth) {
    for (const auto &provider : {u"trustmrr"_s, u"plausible"_s}) {
        EXPECT_TRUE(canSaveNew(provider, u"my-startup"_s, u"key"_s));
        EXPECT_FALSE(canSaveNew(provider, u"my-startup"_s, u" "_s));
        EXPECT_FALSE(canSaveNew(provider, {}, u"key"_s));
        EXPECT_TRUE(canSaveReady(provider, u"other"_s, {})) << "its key is kept";
        EXPECT_FALSE(canSaveReady(provider, u" "_s, {}));
    }
}

TEST_F(AccountFormTest, anOptionalValueMayBeMissing) {
    EXPECT_TRUE(canSaveNew(u"dodo"_s, {}, u"key"_s));
    EXPECT_TRUE(canSaveNew(u"dodo"_s, u"brand_1"_s, u"key"_s));
    EXPECT_FALSE(canSaveNew(u"dodo"_s, u"brand_1"_s, {}));
}

TEST_F(AccountFormTest, aKeyIsNotTypedAgainWhereOneIsKept) {
    for (const auto &provider : {u"stripe"_s, u"polar"_s, u"dodo"_s, u"vercel"_s}) {
        EXPECT_FALSE(canSaveNew(provider, {}, {})) << provider.toStdString();
        EXPECT_FALSE(canSaveNew(provider, {}, u"  "_s)) << provider.toStdString();
        EXPECT_TRUE(canSaveNew(provider, {}, u" sk "_s)) << provider.toStdString();
        EXPECT_TRUE(canSaveReady(provider, {}, {})) << provider.toStdString();
        EXPECT_FALSE(canSaveReady(provider, {}, u" "_s)) << "blanks are neither key nor nothing";
    }
}

TEST_F(AccountFormTest, anAccountThatIsGoneIsNotSaved) {
    AccountForm form{add(u"stripe"_s), u"sk"_s};
    removeForGood(*store, form.account.id);
    settle();
    EXPECT_FALSE(canSave(form, *store));
    save(form);
    settle();
    EXPECT_THAT(told, ElementsAre(SecretOutcome::refused));
    EXPECT_THAT(secrets.entries(), IsEmpty()) << "a key of no account";
}

TEST_F(AccountFormTest, savesTheEditedRecordAndTheKey) {
    AccountForm form{add(u"dodo"_s), u" dodo_key "_s};
    form.account.name = u"Main store"_s;
    form.account.extra = u" brand_1 "_s;
    save(form);
    EXPECT_THAT(told, IsEmpty()) << "before the keyring has it";
    settle();
    EXPECT_THAT(told, ElementsAre(SecretOutcome::done));
    form.account.extra = u"brand_1"_s;
    EXPECT_THAT(storedConnections(), ElementsAre(form.account));
    EXPECT_TRUE(store->isReady(form.account));
    EXPECT_EQ(keychain->get(secretAccount(form.account.id)).value, u"dodo_key"_s);
}

TEST_F(AccountFormTest, anEmptyFieldKeepsTheKeyThatIsThere) {
    AccountForm form{addReady(u"stripe"_s)};
    form.account.name = u"Renamed"_s;
    save(form);
    EXPECT_THAT(told, ElementsAre(SecretOutcome::done)) << "told at once, since none was typed";
    settle();
    EXPECT_EQ(storedConnections().front().name, u"Renamed"_s);
    EXPECT_EQ(keychain->get(secretAccount(form.account.id)).value, u"kept"_s);
}

TEST_F(AccountFormTest, aServiceWithoutAKeyIsReadyAtOnceAndNeverAsksTheKeyring) {
    const auto account = saved(u"reddit"_s, u" brindle "_s, u"pasted by mistake"_s);
    EXPECT_TRUE(store->isReady(storedConnections().front()));
    EXPECT_EQ(storedConnections().front().extra, u"brindle"_s);
    EXPECT_THAT(secrets.takeCalls(), IsEmpty());
    EXPECT_THAT(told, ElementsAre(SecretOutcome::done));
}

TEST_F(AccountFormTest, gitHubIsReadyAtOnceAndItsTokenFollows) {
    AccountForm form{add(u"github"_s), u"ghp_1"_s};
    form.account.extra = u"octavia"_s;
    save(form);
    EXPECT_TRUE(store->isReady(form.account));
    settle();
    EXPECT_EQ(keychain->get(secretAccount(form.account.id)).value, u"ghp_1"_s);
}

TEST_F(AccountFormTest, aPausedAccountStaysPausedWithANewKey) {
    AccountForm form{add(u"stripe"_s), u"sk"_s};
    form.account.enabled = false;
    save(form);
    settle();
    EXPECT_FALSE(storedConnections().front().enabled);
    EXPECT_TRUE(store->isReady(form.account));
}

TEST_F(AccountFormTest, nothingIsLostWhenTheKeyringRefuses) {
    for (const auto outcome : {SecretOutcome::refused, SecretOutcome::unavailable}) {
        told.clear();
        secrets.answer(outcome);
        const auto account = saved(u"stripe"_s, {}, u"sk"_s);
        EXPECT_THAT(told, ElementsAre(outcome));
        EXPECT_TRUE(store->isReady(account)) << "it works until the end";
        EXPECT_EQ(keychain->get(secretAccount(account.id)).value, u"sk"_s);
        secrets.answer(SecretOutcome::done);
        save({account, u"sk"_s});
        settle();
        EXPECT_THAT(told, ElementsAre(outcome, SecretOutcome::done));
        EXPECT_EQ(Keychain(secrets, defaults).get(secretAccount(account.id)).value, u"sk"_s);
        removeForGood(*store, account.id);
        settle();
    }
}

TEST_F(AccountFormTest, theFirstSaveTurnsTheWidgetOn) {
    saved(u"reddit"_s, u"brindle"_s);
    EXPECT_EQ(stored(placementsKey), R"({"reddit":"always"})");
    EXPECT_EQ(stored(sizesKey), "absent");
    saved(u"stripe"_s, {}, u"sk"_s);
    EXPECT_EQ(stored(placementsKey), R"({"reddit":"always","revenue":"always"})");
}

TEST_F(AccountFormTest, aChoiceOfTheUserIsNeverOverwritten) {
    preferences.set(WidgetPlacement::off, WidgetKind::rss);
    preferences.setSize(WidgetSizeOption::large, WidgetKind::rss);
    saved(u"rss"_s, u"https://a.org/feed"_s);
    EXPECT_EQ(preferences.placement(WidgetKind::rss), WidgetPlacement::off);
    EXPECT_EQ(preferences.size(WidgetKind::rss), WidgetSizeOption::large);
}

TEST_F(AccountFormTest, aFeedIsSmallAtFirst) {
    saved(u"rss"_s, u"https://a.org/feed"_s);
    EXPECT_EQ(stored(sizesKey), R"({"rss":"small"})");
}

TEST_F(AccountFormTest, aSecondAccountLeavesThePlacementAlone) {
    saved(u"reddit"_s, u"brindle"_s);
    preferences.set(WidgetPlacement::off, WidgetKind::reddit);
    saved(u"reddit"_s, u"harlowe"_s);
    EXPECT_EQ(preferences.placement(WidgetKind::reddit), WidgetPlacement::off);
}

TEST_F(AccountFormTest, anAccountThatWasReadyTurnsNothingOn) {
    const auto account = addReady(u"stripe"_s);
    save({account, u"new"_s});
    settle();
    EXPECT_EQ(stored(placementsKey), "absent");
}

TEST_F(AccountFormTest, aServiceWithoutAWidgetTurnsNothingOn) {
    saved(u"my shop"_s, {}, u"key"_s);
    EXPECT_EQ(stored(placementsKey), "absent");
}

TEST_F(AccountFormTest, thePlanNamesEveryStep) {
    AccountForm form{add(u"github"_s), u" ghp_1 "_s};
    form.account.extra = u" octavia "_s;
    auto account = form.account;
    account.extra = u"octavia"_s;
    EXPECT_EQ(savePlan(form, *store), (SavePlan{account, true, u"ghp_1"_s, true}));
    store->markReady(account.id);
    store->updateConnection(account);
    form.secret.clear();
    EXPECT_EQ(savePlan(form, *store), (SavePlan{account, true, std::nullopt, false}));
    form.account.extra = u" "_s;
    EXPECT_FALSE(savePlan(form, *store).marksReady);
}

} // namespace

} // namespace zeph
