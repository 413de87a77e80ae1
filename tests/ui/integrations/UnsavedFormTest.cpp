// SPDX-License-Identifier: MIT
#include "ui/integrations/IntegrationsFixture.h"

#include <QAbstractButton>

using namespace Qt::StringLiterals;
using testing::SizeIs;

namespace zeph::ui {

namespace {

const auto question = u"Discard changes?"_s;
const auto stripeKey = u"Read-only key (rk_live_… or sk_…)"_s;
const auto addressField = u"API Endpoint"_s;

/// Forms that are left, or saved, with something typed in them.
class UnsavedFormTest : public IntegrationsFixture {
protected:
    using Page = IntegrationsSelection::Page;

    Page page() const { return pane->selection().page; }

    /// Goes a step back, as Escape does.
    void goBack() {
        pane->goBack();
        turn();
    }

    QUuid openAccount() {
        const QUuid id = connect(u"stripe"_s, u"sk_old"_s).id;
        open();
        showAccount(stored(id));
        return id;
    }

    void openEndpoint() {
        open();
        endpoint = {QUuid::createUuid(),
                    u"Signups"_s,
                    u"https://api.example.org/v2"_s,
                    {{QUuid::createUuid(), u"Authorization"_s, u"Bearer sk_7"_s}},
                    {{QUuid::createUuid(), u"Today"_s, u"data.today"_s}}};
        store->upsertCustomAPI(endpoint);
        settle();
        showEndpoint(endpoint.id);
    }

    /// Types a new endpoint and has it added.
    void addTyped() {
        showEndpoint();
        type(u"Name"_s, u"Signups"_s);
        type(addressField, u"https://api.example.org/v2"_s);
        press(u"Add integration"_s);
        settle();
    }

    CustomAPIConfig endpoint;
};

// Leaving

TEST_F(UnsavedFormTest, aFormInWhichNothingIsTypedIsLeftAtOnce) {
    openAccount();
    goBack();
    EXPECT_EQ(page(), Page::cards);
    showEndpoint();
    goBack();
    EXPECT_EQ(page(), Page::cards);
}

TEST_F(UnsavedFormTest, aTypedKeyIsAskedAboutAndKept) {
    openAccount();
    type(stripeKey, u"sk_new"_s);
    goBack();
    ASSERT_EQ(page(), Page::account);
    EXPECT_TRUE(shows(question));
    EXPECT_EQ(QApplication::focusWidget(), button(u"Keep editing"_s));
    press(u"Keep editing"_s);
    EXPECT_FALSE(shows(question));
    EXPECT_EQ(QApplication::focusWidget(), field(stripeKey));
    EXPECT_EQ(field(stripeKey)->text(), u"sk_new"_s);
}

TEST_F(UnsavedFormTest, aSecondStepBackKeepsWhatIsTyped) {
    openAccount();
    type(u"Display name"_s, u"Main store"_s);
    goBack();
    ASSERT_TRUE(shows(question));
    goBack();
    EXPECT_FALSE(shows(question));
    ASSERT_EQ(page(), Page::account);
    EXPECT_EQ(field(u"Display name"_s)->text(), u"Main store"_s);
}

TEST_F(UnsavedFormTest, discardedChangesAreGone) {
    const QUuid id = openAccount();
    type(u"Display name"_s, u"Main store"_s);
    press(u"All integrations"_s);
    ASSERT_TRUE(shows(question)) << "the way back asks too";
    press(u"Discard"_s);
    EXPECT_EQ(page(), Page::cards);
    EXPECT_FALSE(shows(question));
    showAccount(stored(id));
    EXPECT_NE(field(u"Display name"_s)->text(), u"Main store"_s);
}

TEST_F(UnsavedFormTest, theQuestionGoesAwayWhenOneTypesOn) {
    openAccount();
    type(u"Display name"_s, u"Main"_s);
    goBack();
    ASSERT_TRUE(shows(question));
    type(u"Display name"_s, u"Main store"_s);
    EXPECT_FALSE(shows(question));
    goBack();
    EXPECT_TRUE(shows(question)) << "and is asked again";
}

TEST_F(UnsavedFormTest, aSwitchAndASavedFormCountToo) {
    const QUuid id = openAccount();
    press(u"Active"_s);
    goBack();
    ASSERT_TRUE(shows(question));
    press(u"Keep editing"_s);
    press(u"Save changes"_s);
    settle();
    EXPECT_FALSE(stored(id).enabled);
    goBack();
    EXPECT_EQ(page(), Page::cards) << "nothing is left to ask about";
}

TEST_F(UnsavedFormTest, blanksAroundASavedValueAreNoChange) {
    open();
    addAccount(u"reddit"_s);
    type(u"Username"_s, u" brindle "_s);
    press(u"Save & connect"_s);
    settle();
    goBack();
    EXPECT_EQ(page(), Page::cards);
}

TEST_F(UnsavedFormTest, anEndpointIsAskedAboutToo) {
    openEndpoint();
    goBack();
    ASSERT_EQ(page(), Page::cards);
    showEndpoint(endpoint.id);
    type(u"Header value"_s, u"Bearer sk_8"_s);
    goBack();
    EXPECT_TRUE(shows(question));
    press(u"Discard"_s);
    EXPECT_EQ(page(), Page::cards);
    EXPECT_EQ(store->customAPIs().front(), endpoint);
}

TEST_F(UnsavedFormTest, aRemovalAsksNothing) {
    const QUuid id = openAccount();
    type(u"Display name"_s, u"Main store"_s);
    press(u"Remove"_s);
    EXPECT_FALSE(shows(question));
    EXPECT_TRUE(store->connections(u"stripe"_s).empty()) << id.toString().toStdString();
}

// Saving

TEST_F(UnsavedFormTest, whatIsTypedWhileAnEndpointIsSavedStays) {
    openEndpoint();
    type(u"Name"_s, u"Sign-ups"_s);
    press(u"Save changes"_s); // the keyring has not answered yet
    type(u"Name"_s, u"Sign-ups today"_s);
    settle();
    ASSERT_EQ(page(), Page::endpoint);
    EXPECT_EQ(field(u"Name"_s)->text(), u"Sign-ups today"_s);
    EXPECT_EQ(store->customAPIs().front().name, u"Sign-ups"_s);
    EXPECT_TRUE(shows(u"Saved, but for what you changed since."_s));
    goBack();
    ASSERT_TRUE(shows(question));
    press(u"Keep editing"_s);
    press(u"Save changes"_s);
    settle();
    EXPECT_EQ(page(), Page::cards);
    EXPECT_EQ(store->customAPIs().front().name, u"Sign-ups today"_s);
}

TEST_F(UnsavedFormTest, aNewEndpointThatIsChangedMeanwhileIsAddedOnce) {
    open();
    showEndpoint();
    type(u"Name"_s, u"Signups"_s);
    type(addressField, u"https://api.example.org/v2"_s);
    press(u"Add integration"_s);
    type(addressField, u"https://api.example.org/v3"_s);
    settle();
    ASSERT_EQ(page(), Page::endpoint);
    EXPECT_NE(button(u"Delete"_s), nullptr) << "it is there now";
    press(u"Save changes"_s);
    settle();
    ASSERT_THAT(store->customAPIs(), SizeIs(1));
    EXPECT_EQ(store->customAPIs().front().urlString, u"https://api.example.org/v3"_s);
}

TEST_F(UnsavedFormTest, anEndpointWhileItIsSavedIsLeftWithoutAQuestion) {
    openEndpoint();
    type(u"Name"_s, u"Sign-ups"_s);
    press(u"Save changes"_s);
    goBack();
    EXPECT_EQ(page(), Page::cards);
    settle();
    EXPECT_EQ(store->customAPIs().front().name, u"Sign-ups"_s);
}

TEST_F(UnsavedFormTest, anEndpointThatCouldNotBeAddedIsAskedAbout) {
    defaults.set(endpointsExistKey(), true); // and can't be read
    secrets.answer(SecretOutcome::refused);
    open();
    addTyped();
    ASSERT_THAT(store->customAPIs(), SizeIs(0));
    goBack();
    EXPECT_TRUE(shows(question));
}

TEST_F(UnsavedFormTest, anEndpointThatIsListedThoughTheKeyringRefusedItIsLeft) {
    open();
    secrets.answer(SecretOutcome::refused);
    addTyped();
    ASSERT_EQ(page(), Page::endpoint);
    ASSERT_THAT(store->customAPIs(), SizeIs(1));
    goBack();
    EXPECT_EQ(page(), Page::cards);
}

} // namespace

} // namespace zeph::ui
