// SPDX-License-Identifier: MIT
#include "services/forms/CustomAPIDraft.h"

#include "model/AppState.h"
#include "services/forms/FormsFixture.h"

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace zeph {

namespace {

class CustomAPIDraftTest : public FormsFixture {
protected:
    CustomAPIDraftTest() {
        draft.config.name = u"Signups"_s;
        draft.config.urlString = u"https://api.example.org/signups"_s;
    }

    bool save() {
        return draft.save(*store, preferences,
                          [this](SecretOutcome outcome) { told.push_back(outcome); });
    }

    QByteArray placements() const {
        return defaults.get<QByteArray>(u"zeph.widgets.placements"_s).value_or("absent");
    }

    CustomAPIDraft draft = CustomAPIDraft::fresh();
    std::vector<SecretOutcome> told;
};

TEST_F(CustomAPIDraftTest, isNewUntilItIsSaved) {
    EXPECT_FALSE(draft.config.id.isNull());
    EXPECT_TRUE(draft.isNew(*store));
    EXPECT_EQ(draft.title(*store), u"Add Custom API"_s);
    EXPECT_EQ(draft.saveTitle(*store), u"Add integration"_s);
    EXPECT_TRUE(save());
    EXPECT_FALSE(draft.isNew(*store));
    EXPECT_EQ(draft.title(*store), u"Signups"_s);
    EXPECT_EQ(draft.saveTitle(*store), u"Save changes"_s);
    draft.config.name.clear();
    EXPECT_EQ(draft.title(*store), u"Custom API"_s);
}

TEST_F(CustomAPIDraftTest, canBeCalledWithAnAddressThatHasAHost) {
    for (const auto &address :
         {u"https://a.org"_s, u"http://a.org:8080/x?y=1"_s, u" https://a.org\n"_s}) {
        draft.config.urlString = address;
        EXPECT_TRUE(draft.canCall()) << address.toStdString();
    }
    for (const auto &address :
         {u""_s, u"signups"_s, u"https://"_s, u"https://a b.org"_s, u"/path"_s}) {
        draft.config.urlString = address;
        EXPECT_FALSE(draft.canCall()) << address.toStdString();
        EXPECT_FALSE(draft.canSave());
    }
}

TEST_F(CustomAPIDraftTest, canBeSavedWithANameAsWell) {
    EXPECT_TRUE(draft.canSave());
    draft.config.name = u" \t"_s;
    EXPECT_FALSE(draft.canSave());
    EXPECT_TRUE(draft.canCall());
}

TEST_F(CustomAPIDraftTest, tellsWhyTheLastFetchFailed) {
    AppState state{Date{1'700'000'000}};
    EXPECT_EQ(draft.lastFetch(state), std::nullopt);
    CustomAPIResult result{draft.config.id, u"Signups"_s, {}, {}};
    state.customResults = std::vector{result};
    EXPECT_EQ(draft.lastFetch(state), std::nullopt);
    result.error = u"HTTP 500"_s;
    state.customResults = std::vector{result};
    EXPECT_EQ(draft.lastFetch(state), u"Last fetch: HTTP 500"_s);
    result.id = QUuid::createUuid();
    state.customResults = std::vector{result};
    EXPECT_EQ(draft.lastFetch(state), std::nullopt) << "that of another endpoint";
}

TEST_F(CustomAPIDraftTest, takesAddressAndHeadersOfACommand) {
    draft.config.headers.push_back({QUuid::createUuid(), {}, {}});
    EXPECT_EQ(
        draft.importCurl(u"curl 'https://b.org/x' -H 'Authorization: Bearer k' -H 'X-A: 1'"_s),
        std::nullopt);
    EXPECT_EQ(draft.config.urlString, u"https://b.org/x"_s);
    ASSERT_THAT(draft.config.headers, SizeIs(2));
    EXPECT_EQ(draft.config.headers[0].name, u"Authorization"_s);
    EXPECT_EQ(draft.config.headers[0].value, u"Bearer k"_s);
    EXPECT_EQ(draft.config.headers[1].name, u"X-A"_s);
}

TEST_F(CustomAPIDraftTest, aCommandWithoutHeadersKeepsThoseInTheForm) {
    draft.config.headers = {{QUuid::createUuid(), u"X-Key"_s, u"1"_s}};
    const auto headers = draft.config.headers;
    EXPECT_EQ(draft.importCurl(u"curl https://b.org"_s), std::nullopt);
    EXPECT_EQ(draft.config.headers, headers);
    EXPECT_EQ(draft.config.urlString, u"https://b.org"_s);
}

TEST_F(CustomAPIDraftTest, aCommandWithoutAnAddressChangesNothingAndSaysSo) {
    const auto before = draft;
    for (const auto &command : {u""_s, u"signups"_s, u"curl -H 'X-A: 1' ftp://a.org"_s}) {
        EXPECT_EQ(draft.importCurl(command), u"Couldn't find a URL in that command."_s);
        EXPECT_EQ(draft, before);
    }
}

TEST_F(CustomAPIDraftTest, aDataPointIsNamedAfterTheLastWordOfItsPath) {
    EXPECT_EQ(CustomAPIDraft::fieldLabel(u"data.0.total_users"_s), u"Total Users"_s);
    EXPECT_EQ(CustomAPIDraft::fieldLabel(u"total_users.0"_s), u"Total Users"_s);
    EXPECT_EQ(CustomAPIDraft::fieldLabel(u"MRR"_s), u"Mrr"_s);
    EXPECT_EQ(CustomAPIDraft::fieldLabel(u"a.1.5x"_s), u"5x"_s);
    for (const auto &path : {u""_s, u"0"_s, u"0.1"_s, u"-1.+2"_s, u"_"_s, u".."_s}) {
        EXPECT_EQ(CustomAPIDraft::fieldLabel(path), u"Value"_s) << path.toStdString();
    }
}

TEST_F(CustomAPIDraftTest, addsADataPointOnce) {
    draft.addField(u"data.count"_s);
    draft.addField(u""_s);
    draft.addField(u"data.count"_s);
    const auto &fields = draft.config.fields;
    ASSERT_THAT(fields, SizeIs(2));
    EXPECT_EQ(fields[0], (CustomAPIField{fields[0].id, u"Count"_s, u"data.count"_s}));
    EXPECT_EQ(fields[1], (CustomAPIField{fields[1].id, u"Value"_s, u""_s}));
    EXPECT_FALSE(fields[0].id.isNull() || fields[0].id == fields[1].id);
}

TEST_F(CustomAPIDraftTest, showsWhatATestCallCameTo) {
    EXPECT_EQ(draft.answer({{}, u"HTTP 404"_s}), (TestAnswer{u"HTTP 404"_s, true, {}}));
    EXPECT_EQ(draft.answer({}), (TestAnswer{u"The response had no readable values."_s, false, {}}));
    draft.addField(u"count"_s);
    const auto answer = draft.answer({{{u""_s, u"7"_s}, {u"count"_s, u"8"_s}}, {}});
    EXPECT_EQ(answer.line, u"Tap + to add a value to your widget:"_s);
    EXPECT_FALSE(answer.isError);
    EXPECT_THAT(answer.rows, ElementsAre(AnswerRow{u""_s, u"(response)"_s, u"7"_s, false},
                                         AnswerRow{u"count"_s, u"count"_s, u"8"_s, true}));
}

TEST_F(CustomAPIDraftTest, isStoredWithoutOuterBlanksAndEmptyHeaders) {
    draft.config.name = u" Signups "_s;
    draft.config.urlString = u"https://a.org/x "_s;
    draft.config.headers.push_back({QUuid::createUuid(), {}, {}});
    draft.config.headers.push_back({QUuid::createUuid(), u"X-Empty"_s, {}});
    EXPECT_TRUE(save());
    settle();
    const auto &stored = store->customAPIs().front();
    EXPECT_EQ(stored.name, u"Signups"_s);
    EXPECT_EQ(stored.urlString, u"https://a.org/x"_s);
    ASSERT_THAT(stored.headers, SizeIs(1));
    EXPECT_EQ(stored.headers.front().name, u"X-Empty"_s);
    EXPECT_THAT(told, ElementsAre(SecretOutcome::done));
}

TEST_F(CustomAPIDraftTest, theFirstSaveTurnsTheWidgetOn) {
    EXPECT_TRUE(save());
    EXPECT_EQ(placements(), R"({"customAPIs":"always"})");
}

TEST_F(CustomAPIDraftTest, aChoiceOfTheUserIsNeverOverwritten) {
    preferences.set(WidgetPlacement::off, WidgetKind::customAPIs);
    EXPECT_TRUE(save());
    EXPECT_EQ(preferences.placement(WidgetKind::customAPIs), WidgetPlacement::off);
}

TEST_F(CustomAPIDraftTest, aLaterSaveTurnsNothingOn) {
    store->upsertCustomAPI(draft.config);
    EXPECT_TRUE(save());
    EXPECT_EQ(placements(), "absent");
    EXPECT_THAT(store->customAPIs(), SizeIs(1));
}

TEST_F(CustomAPIDraftTest, isNotSavedOverEndpointsThatALockedKeyringHides) {
    EXPECT_TRUE(save());
    settle();
    secrets.answer(SecretOutcome::refused);
    launchAndSettle();
    defaults.remove(u"zeph.widgets.placements"_s);
    PreferencesStore fresh{defaults, notifications, formatters};
    told.clear();
    draft = CustomAPIDraft::fresh();
    draft.config.name = u"Other"_s;
    draft.config.urlString = u"https://b.org"_s;
    EXPECT_FALSE(draft.save(*store, fresh, [this](auto outcome) { told.push_back(outcome); }));
    settle();
    EXPECT_THAT(told, ElementsAre(SecretOutcome::refused));
    EXPECT_THAT(store->customAPIs(), IsEmpty());
    EXPECT_EQ(placements(), "absent");
}

} // namespace

} // namespace zeph
