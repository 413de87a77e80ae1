// SPDX-License-Identifier: MIT
#include "ui/integrations/IntegrationsFixture.h"

#include <QAbstractButton>
#include <QListWidget>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace zeph::ui {

namespace {

const auto address = u"https://api.example.org/v2"_s;
const auto nameField = u"Name"_s;
const auto addressField = u"API Endpoint"_s;
const auto headerName = u"Header name"_s;
const auto headerValue = u"Header value"_s;
const auto tapText = u"Tap + to add a value to your widget:"_s;

class CustomAPIEditorTest : public IntegrationsFixture {
protected:
    CustomAPIEditorTest() {
        listing.leaves = {{u"data.0.total_users"_s, u"18402"_s}, {u"data.today"_s, u"42"_s}};
    }

    /// Opens the window on the form of an endpoint that is there.
    void openStored(const std::vector<CustomAPIField> &fields = {}) {
        open();
        endpoint = {QUuid::createUuid(),
                    u"Signups"_s,
                    address,
                    {{QUuid::createUuid(), u"Authorization"_s, u"Bearer sk_7"_s}},
                    fields};
        store->upsertCustomAPI(endpoint);
        settle();
        showEndpoint(endpoint.id);
    }

    void openFresh() {
        open();
        showEndpoint();
    }

    void importCommand(const QString &command) {
        press(u"Import from cURL"_s);
        auto *const box = window.findChild<QPlainTextEdit *>();
        ASSERT_NE(box, nullptr);
        box->setPlainText(command);
        press(u"Import"_s);
    }

    void runTest() {
        press(u"Run test call"_s);
        settle();
    }

    QStringList rows() {
        QStringList sentences;
        const QListWidget *const shown = list();
        for (int row = 0; shown != nullptr && row < shown->count(); ++row) {
            sentences << shown->item(row)->text();
        }
        return sentences;
    }

    CustomAPIConfig endpoint;
};

TEST_F(CustomAPIEditorTest, aNewEndpointIsAddedAndComesToTheWallpaper) {
    openFresh();
    EXPECT_TRUE(shows(u"Add Custom API"_s));
    EXPECT_TRUE(shows(u"Point Tavi at any GET endpoint, run a test call, then pick the values to "
                      "show."_s));
    EXPECT_EQ(button(u"Delete"_s), nullptr);
    EXPECT_FALSE(button(u"Add integration"_s)->isEnabled());
    type(nameField, u"Signups"_s);
    EXPECT_FALSE(button(u"Add integration"_s)->isEnabled());
    type(addressField, address);
    type(headerName, u"Authorization"_s);
    type(headerValue, u"Bearer sk_7"_s);
    press(u"Add integration"_s);
    settle();
    ASSERT_THAT(store->customAPIs(), SizeIs(1));
    const CustomAPIConfig &added = store->customAPIs().front();
    EXPECT_EQ(added.name, u"Signups"_s);
    EXPECT_EQ(added.urlString, address);
    ASSERT_THAT(added.headers, SizeIs(1));
    EXPECT_EQ(added.headers.front().value, u"Bearer sk_7"_s);
    EXPECT_TRUE(preferences.hasChosenPlacement(WidgetKind::customAPIs));
    EXPECT_TRUE(preferences.isOn(WidgetKind::customAPIs));
    EXPECT_EQ(pane->selection(), IntegrationsSelection());
    EXPECT_NE(button(u"Signups"_s), nullptr);
}

TEST_F(CustomAPIEditorTest, aChosenPlacementIsLeftAlone) {
    preferences.set(WidgetPlacement::off, WidgetKind::customAPIs);
    openFresh();
    type(nameField, u"Signups"_s);
    type(addressField, address);
    key(Qt::Key_Return);
    settle();
    EXPECT_THAT(store->customAPIs(), SizeIs(1));
    EXPECT_FALSE(preferences.isOn(WidgetKind::customAPIs));
}

TEST_F(CustomAPIEditorTest, aRefusedKeyringKeepsTheFormOpen) {
    openFresh();
    type(nameField, u"Signups"_s);
    type(addressField, address);
    type(headerValue, u"Bearer sk_7"_s);
    secrets.answer(SecretOutcome::refused);
    press(u"Add integration"_s);
    EXPECT_TRUE(shows(u"Saving…"_s));
    settle();
    EXPECT_TRUE(shows(u"The keyring stayed locked, so this works only until Tavi ends. Save again "
                      "to keep it."_s));
    EXPECT_EQ(field(nameField)->text(), u"Signups"_s);
    EXPECT_EQ(field(headerValue)->text(), u"Bearer sk_7"_s);
    secrets.answer(SecretOutcome::done);
    press(u"Save changes"_s);
    settle();
    EXPECT_EQ(pane->selection(), IntegrationsSelection());
}

TEST_F(CustomAPIEditorTest, nothingIsSavedWhileTheEndpointsThatAreThereAreUnknown) {
    defaults.set(endpointsExistKey(), true);
    secrets.answer(SecretOutcome::refused);
    openFresh();
    type(nameField, u"Signups"_s);
    type(addressField, address);
    press(u"Add integration"_s);
    settle();
    EXPECT_THAT(store->customAPIs(), IsEmpty());
    EXPECT_TRUE(
        shows(u"Your endpoints lie in the keyring, and it has to be unlocked before one can "
              "be added. Nothing was saved; try again."_s));
    EXPECT_EQ(field(addressField)->text(), address);
    EXPECT_FALSE(preferences.hasChosenPlacement(WidgetKind::customAPIs));
}

TEST_F(CustomAPIEditorTest, showsWhatIsStoredWithItsHeadersHidden) {
    openStored({{QUuid::createUuid(), u"Signups today"_s, u"data.today"_s}});
    EXPECT_EQ(field(nameField)->text(), u"Signups"_s);
    EXPECT_EQ(field(headerName)->text(), u"Authorization"_s);
    EXPECT_EQ(field(headerValue)->echoMode(), QLineEdit::Password);
    EXPECT_EQ(field(u"Display name, data.today"_s)->text(), u"Signups today"_s);
    EXPECT_NE(button(u"Save changes"_s), nullptr);
    EXPECT_NE(button(u"Delete"_s), nullptr);
    EXPECT_FALSE(texts().join(u' ').contains(u"sk_7"_s));
}

TEST_F(CustomAPIEditorTest, tellsTheErrorOfTheLastFetch) {
    openStored();
    CustomAPIResult result;
    result.id = endpoint.id;
    result.error = u"HTTP 503"_s;
    state.customResults = {result};
    turn();
    EXPECT_TRUE(shows(u"Last fetch: HTTP 503"_s));
}

TEST_F(CustomAPIEditorTest, anAddressWithoutAHostIsMarkedOnceItsFieldIsLeft) {
    openFresh();
    type(addressField, u"signups"_s);
    EXPECT_FALSE(shows(u"Invalid URL"_s)) << "it is still being typed";
    EXPECT_FALSE(button(u"Run test call"_s)->isEnabled());
    key(Qt::Key_Tab);
    EXPECT_TRUE(shows(u"Invalid URL"_s));
    type(addressField, address);
    EXPECT_FALSE(shows(u"Invalid URL"_s));
    EXPECT_TRUE(button(u"Run test call"_s)->isEnabled());
}

// Import

TEST_F(CustomAPIEditorTest, anImportTakesAddressAndHeadersAndClosesTheBox) {
    openFresh();
    importCommand(u"curl --url https://a.org/x -H 'X-Team: northwind' -H 'X-Key: 1'"_s);
    EXPECT_EQ(field(addressField)->text(), u"https://a.org/x"_s);
    EXPECT_EQ(field(headerName)->text(), u"X-Team"_s);
    EXPECT_EQ(button(u"Import"_s), nullptr);
    EXPECT_TRUE(button(u"Run test call"_s)->isEnabled());
    EXPECT_EQ(window.findChild<QPlainTextEdit *>()->toPlainText(), QString());
    window.findChild<QPlainTextEdit *>()->undo();
    EXPECT_EQ(window.findChild<QPlainTextEdit *>()->toPlainText(), QString())
        << "the command may have held a key";
}

TEST_F(CustomAPIEditorTest, anImportWithoutHeadersKeepsThoseThatAreThere) {
    openStored();
    importCommand(u"curl https://a.org/x"_s);
    EXPECT_EQ(field(addressField)->text(), u"https://a.org/x"_s);
    EXPECT_EQ(field(headerName)->text(), u"Authorization"_s);
    EXPECT_EQ(field(headerValue)->text(), u"Bearer sk_7"_s);
}

TEST_F(CustomAPIEditorTest, aPasteWithoutAnAddressChangesNothing) {
    openStored();
    importCommand(u"curl -H 'X-Key: 1' api.example.org"_s);
    EXPECT_TRUE(shows(u"Couldn't find a URL in that command."_s));
    EXPECT_EQ(field(addressField)->text(), address);
    EXPECT_EQ(field(headerName)->text(), u"Authorization"_s);
    EXPECT_NE(button(u"Import"_s), nullptr);
    window.findChild<QPlainTextEdit *>()->setPlainText(u"curl https://a.org"_s);
    press(u"Import"_s);
    EXPECT_FALSE(shows(u"Couldn't find a URL in that command."_s));
}

// Headers

TEST_F(CustomAPIEditorTest, headersAreAddedAndRemovedByKeyboard) {
    openStored();
    button(u"Add header"_s)->setFocus(Qt::TabFocusReason);
    key(Qt::Key_Space);
    QTest::keyClicks(QApplication::focusWidget(), u"X-Team"_s);
    key(Qt::Key_Tab);
    QTest::keyClicks(QApplication::focusWidget(), u"northwind"_s);
    button(u"Remove header"_s)->setFocus(Qt::TabFocusReason);
    key(Qt::Key_Space);
    EXPECT_EQ(qobject_cast<QLineEdit *>(QApplication::focusWidget())->text(), u"X-Team"_s);
    press(u"Save changes"_s);
    settle();
    const auto &headers = store->customAPIs().front().headers;
    ASSERT_THAT(headers, SizeIs(1));
    EXPECT_EQ(headers.front().name, u"X-Team"_s);
    EXPECT_EQ(headers.front().value, u"northwind"_s);
}

TEST_F(CustomAPIEditorTest, rowsThatWereLeftEmptyAreNoHeaders) {
    openFresh();
    type(nameField, u"Signups"_s);
    type(addressField, address);
    press(u"Add header"_s);
    press(u"Add integration"_s);
    settle();
    EXPECT_THAT(store->customAPIs().front().headers, IsEmpty());
}

// The test call

TEST_F(CustomAPIEditorTest, aTestCallListsTheValuesThere) {
    openStored({{QUuid::createUuid(), u"Today"_s, u"data.today"_s}});
    runTest();
    EXPECT_THAT(calls, testing::Contains(u"list "_s + address));
    EXPECT_TRUE(shows(tapText));
    EXPECT_EQ(rows(), QStringList({u"data.0.total_users, 18402, add, 1 of 2"_s,
                                   u"data.today, 42, shown, 2 of 2"_s}));
}

TEST_F(CustomAPIEditorTest, aTestCallSaysThatItRunsAndCanBeGivenUp) {
    openStored();
    press(u"Run test call"_s);
    EXPECT_TRUE(shows(u"Waiting for the answer…"_s));
    EXPECT_EQ(button(u"Run test call"_s), nullptr);
    press(u"Cancel"_s);
    EXPECT_FALSE(shows(u"Waiting for the answer…"_s));
    settle();
    EXPECT_THAT(rows(), IsEmpty()) << "an answer that nobody wants any more";
    runTest();
    EXPECT_THAT(rows(), SizeIs(2));
}

TEST_F(CustomAPIEditorTest, aTestCallOutlivesItsForm) {
    openStored();
    press(u"Run test call"_s);
    pane->goBack();
    settle();
    EXPECT_EQ(pane->selection(), IntegrationsSelection());
}

TEST_F(CustomAPIEditorTest, aTestCallTellsWhyThereIsNothing) {
    openStored();
    listing = {{}, u"HTTP 404"_s};
    runTest();
    EXPECT_TRUE(shows(u"HTTP 404"_s));
    listing = {};
    runTest();
    EXPECT_FALSE(shows(u"HTTP 404"_s));
    EXPECT_TRUE(shows(u"The response had no readable values."_s));
    EXPECT_FALSE(shows(tapText));
}

TEST_F(CustomAPIEditorTest, aValueIsAddedUnderAReadableNameAndMarked) {
    openStored();
    runTest();
    list()->setFocus(Qt::TabFocusReason);
    key(Qt::Key_Return);
    EXPECT_EQ(field(u"Display name, data.0.total_users"_s)->text(), u"Total Users"_s);
    EXPECT_EQ(rows().front(), u"data.0.total_users, 18402, shown, 1 of 2"_s);
    key(Qt::Key_Return);
    type(u"Display name, data.0.total_users"_s, u"Users"_s);
    press(u"Save changes"_s);
    settle();
    const auto &fields = store->customAPIs().front().fields;
    ASSERT_THAT(fields, SizeIs(1)) << "added twice";
    EXPECT_EQ(fields.front().label, u"Users"_s);
    EXPECT_EQ(fields.front().jsonPath, u"data.0.total_users"_s);
}

TEST_F(CustomAPIEditorTest, aDataPointThatIsRemovedCanBeAddedAgain) {
    openStored({{QUuid::createUuid(), u"Today"_s, u"data.today"_s}});
    runTest();
    press(u"Remove data point"_s);
    EXPECT_EQ(rows().at(1), u"data.today, 42, add, 2 of 2"_s);
    EXPECT_FALSE(shows(u"Data points on your wallpaper"_s));
    EXPECT_TRUE(button(u"Save changes"_s)->hasFocus());
    press(u"Save changes"_s);
    settle();
    EXPECT_THAT(store->customAPIs().front().fields, IsEmpty());
}

TEST_F(CustomAPIEditorTest, theAnswerItselfCanBeAValue) {
    openStored();
    listing.leaves = {{u""_s, u"7"_s}};
    runTest();
    list()->setFocus(Qt::TabFocusReason);
    key(Qt::Key_Space);
    EXPECT_EQ(rows(), QStringList({u"(response), 7, shown, 1 of 1"_s}));
    EXPECT_EQ(field(u"Display name, (response)"_s)->text(), u"Value"_s);
}

// Removal

TEST_F(CustomAPIEditorTest, aDeletedEndpointCanBeBroughtBack) {
    openStored();
    press(u"Delete"_s);
    EXPECT_THAT(store->customAPIs(), IsEmpty());
    EXPECT_EQ(pane->selection(), IntegrationsSelection());
    EXPECT_TRUE(shows(u"Removed Signups."_s));
    press(u"Undo"_s);
    settle();
    EXPECT_THAT(store->customAPIs(), ElementsAre(endpoint));
    EXPECT_NE(button(u"Signups"_s), nullptr);
}

TEST_F(CustomAPIEditorTest, tabGoesThroughAllOfIt) {
    openStored({{QUuid::createUuid(), u"Today"_s, u"data.today"_s}});
    runTest();
    press(u"Add header"_s);
    field(nameField)->setFocus(Qt::TabFocusReason);
    const QStringList expected{nameField,
                               addressField,
                               headerName,
                               headerValue,
                               u"Remove header"_s,
                               headerName,
                               headerValue,
                               u"Remove header"_s,
                               u"Add header"_s,
                               u"Run test call"_s,
                               u"Values of the response"_s,
                               u"Display name, data.today"_s,
                               u"Remove data point"_s,
                               u"Delete"_s,
                               u"Save changes"_s,
                               u"All integrations"_s,
                               u"Import from cURL"_s};
    const QStringList names = walk();
    QStringList found;
    for (const QString &name : names) {
        if (expected.contains(name)) {
            found << name;
        }
    }
    EXPECT_EQ(found, expected) << qPrintable(names.join(u", "_s));
}

} // namespace

} // namespace zeph::ui
