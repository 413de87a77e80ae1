// SPDX-License-Identifier: MIT
#include "services/accounts/AccountCoding.h"

#include "support/QtPrinters.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::IsEmpty;
using testing::Optional;
using testing::SizeIs;

namespace zeph {

namespace {

const QUuid id(u"0f9619ff-8b86-d011-b42d-00cf4fc964ff"_s);

/// The endpoint that `json` decodes to; fails the test when it decodes to anything else.
CustomAPIConfig only(const QByteArray &json) {
    const auto read = coding::customAPIs(json);
    EXPECT_THAT(read, Optional(SizeIs(1)));
    return read && read->size() == 1 ? read->front() : CustomAPIConfig();
}

TEST(CustomAPICoding, everyFieldIsWrittenAndReadBack) {
    const CustomAPIConfig whole{id,
                                u"Signups"_s,
                                u"https://example.org/a?b=c"_s,
                                {{id, u"X-Key"_s, u" 1 "_s}, {id, u""_s, u""_s}},
                                {{id, u"Count"_s, u"data.count"_s}}};
    EXPECT_EQ(only(coding::json({whole})), whole);
}

TEST(CustomAPICoding, theFiveKeysAreAlwaysWritten) {
    const QJsonObject record =
        QJsonDocument::fromJson(coding::json(std::vector<CustomAPIConfig>{{id, {}, {}, {}, {}}}))
            .array()
            .first()
            .toObject();
    EXPECT_EQ(record.keys(),
              QStringList({u"fields"_s, u"headers"_s, u"id"_s, u"name"_s, u"urlString"_s}));
    EXPECT_EQ(record.value(u"id"_s), u"0F9619FF-8B86-D011-B42D-00CF4FC964FF"_s);
    EXPECT_TRUE(record.value(u"headers"_s).isArray());
}

TEST(CustomAPICoding, anEmptyListIsWrittenAsOne) {
    EXPECT_EQ(coding::json(std::vector<CustomAPIConfig>()), "[]");
}

TEST(CustomAPICoding, anEmptyObjectIsAnEndpointWithANewId) {
    const auto read = only("[{}]");
    EXPECT_FALSE(read.id.isNull());
    EXPECT_EQ(read, (CustomAPIConfig{read.id, u""_s, u""_s, {}, {}}));
}

TEST(CustomAPICoding, theEarlyFormBecomesOneHeaderAndOneField) {
    const auto read = only(
        R"([{"name":"Signups","urlString":"u","jsonPath":"data.count","headerLine":"X-Key: 1"}])");
    ASSERT_THAT(read.headers, SizeIs(1));
    EXPECT_EQ(read.headers[0], (HTTPHeaderEntry{read.headers[0].id, u"X-Key"_s, u"1"_s}));
    EXPECT_FALSE(read.headers[0].id.isNull());
    ASSERT_THAT(read.fields, SizeIs(1));
    EXPECT_EQ(read.fields[0], (CustomAPIField{read.fields[0].id, u"Signups"_s, u"data.count"_s}));
    EXPECT_FALSE(read.fields[0].id.isNull());
}

TEST(CustomAPICoding, aFieldOfTheEarlyFormWithoutANameIsLabelledValue) {
    const auto read = only(R"([{"jsonPath":""}])");
    ASSERT_THAT(read.fields, SizeIs(1));
    EXPECT_EQ(read.fields[0].label, u"Value"_s);
    EXPECT_EQ(read.fields[0].jsonPath, u""_s);
}

TEST(CustomAPICoding, anUnreadableHeaderLineLeavesNoHeaders) {
    EXPECT_THAT(only(R"([{"headerLine":"no colon"}])").headers, IsEmpty());
    EXPECT_THAT(only(R"([{"headerLine":null}])").headers, IsEmpty());
}

TEST(CustomAPICoding, presentListsWinOverTheEarlyForm) {
    const auto read = only(R"([{"headerLine":"A: b","jsonPath":"x",
        "headers":[{"id":"0F9619FF-8B86-D011-B42D-00CF4FC964FF","name":"N","value":"V"}],
        "fields":[{"id":"0F9619FF-8B86-D011-B42D-00CF4FC964FF","label":"L","jsonPath":"p"}]}])");
    EXPECT_EQ(read.headers, (std::vector<HTTPHeaderEntry>{{id, u"N"_s, u"V"_s}}));
    EXPECT_EQ(read.fields, (std::vector<CustomAPIField>{{id, u"L"_s, u"p"_s}}));
}

TEST(CustomAPICoding, theEarlyFormIsNotLookedAtBesidePresentLists) {
    EXPECT_THAT(only(R"([{"headerLine":1,
        "headers":[{"id":"0F9619FF-8B86-D011-B42D-00CF4FC964FF","name":"N","value":"V"}]}])")
                    .headers,
                SizeIs(1));
    EXPECT_FALSE(coding::customAPIs(R"([{"headerLine":1}])"));
    EXPECT_FALSE(coding::customAPIs(R"([{"jsonPath":1,"fields":[]}])"));
}

TEST(CustomAPICoding, oldDecorationsAreDropped) {
    const auto read = only(R"([{"name":"n","prefix":7,"suffix":"%"}])");
    EXPECT_FALSE(coding::json({read}).contains("prefix"));
    EXPECT_FALSE(coding::json({read}).contains("suffix"));
}

TEST(CustomAPICoding, aHeaderOrFieldWithoutAKeyFailsTheWholeList) {
    for (const char *wrong :
         {R"("headers":[{"name":"n","value":"v"}])",
          R"("headers":[{"id":"0F9619FF-8B86-D011-B42D-00CF4FC964FF","value":"v"}])",
          R"("headers":[{"id":"0F9619FF-8B86-D011-B42D-00CF4FC964FF","name":"n"}])",
          R"("fields":[{"label":"l","jsonPath":"p"}])",
          R"("fields":[{"id":"0F9619FF-8B86-D011-B42D-00CF4FC964FF","jsonPath":"p"}])",
          R"("fields":[{"id":"0F9619FF-8B86-D011-B42D-00CF4FC964FF","label":"l"}])"}) {
        const QByteArray json = QByteArray(R"([{"name":"fine"},{)") + wrong + "}]";
        EXPECT_FALSE(coding::customAPIs(json)) << json.constData();
    }
}

TEST(CustomAPICoding, aValueOfAnotherTypeFailsTheWholeList) {
    for (const char *wrong : {R"("id":"x")", R"("name":1)", R"("urlString":[])", R"("headers":{})",
                              R"("headers":["x"])", R"("fields":"x")", R"("fields":[1])"}) {
        const QByteArray json = QByteArray(R"([{)") + wrong + "}]";
        EXPECT_FALSE(coding::customAPIs(json)) << json.constData();
    }
}

TEST(CustomAPICoding, whatIsNoListOfObjectsIsRefused) {
    for (const char *json : {"", "{}", "null", "[1]", "[[]]", "\"x\"", "[{]"}) {
        EXPECT_FALSE(coding::customAPIs(json)) << json;
    }
}

} // namespace

} // namespace zeph
