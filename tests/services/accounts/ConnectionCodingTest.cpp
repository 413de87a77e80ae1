// SPDX-License-Identifier: MIT
#include "services/accounts/AccountCoding.h"

#include "support/QtPrinters.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::Optional;
using testing::SizeIs;

namespace zeph {

namespace {

const QUuid id(u"0f9619ff-8b86-d011-b42d-00cf4fc964ff"_s);

/// The account that `json` decodes to; fails the test when it decodes to anything else.
IntegrationConnection only(const QByteArray &json) {
    const auto read = coding::connections(json);
    EXPECT_THAT(read, Optional(SizeIs(1)));
    return read && read->size() == 1 ? read->front() : IntegrationConnection();
}

bool isRefused(const QByteArray &json) {
    return !coding::connections(json);
}

QJsonObject stored(const IntegrationConnection &connection) {
    return QJsonDocument::fromJson(coding::json({connection})).array().first().toObject();
}

TEST(ConnectionCoding, aRecordWithOnlyProviderAndNameHasTheDefaults) {
    const auto read = only(R"([{"provider":"stripe","name":"Shop"}])");
    IntegrationConnection expected;
    expected.id = read.id;
    expected.provider = u"stripe"_s;
    expected.name = u"Shop"_s;
    EXPECT_EQ(read, expected);
    EXPECT_FALSE(read.id.isNull());
    EXPECT_TRUE(read.enabled);
    EXPECT_TRUE(read.showAhrefsAttribution);
    EXPECT_FALSE(read.showContributionGraph);
    EXPECT_EQ(read.contributionLayout, u"y1"_s);
    EXPECT_TRUE(read.showStats);
}

TEST(ConnectionCoding, aRecordWithoutAnIdGetsANewOneEachTime) {
    const QByteArray json = R"([{"provider":"rss","name":"a"},{"provider":"rss","name":"a"}])";
    const auto read = coding::connections(json);
    ASSERT_THAT(read, Optional(SizeIs(2)));
    EXPECT_NE(read->at(0).id, read->at(1).id);
}

TEST(ConnectionCoding, aRecordWithoutAProviderFailsTheWholeList) {
    EXPECT_TRUE(isRefused(R"([{"provider":"stripe","name":"a"},{"name":"b"}])"));
}

TEST(ConnectionCoding, aRecordWithoutANameFailsTheWholeList) {
    EXPECT_TRUE(isRefused(R"([{"provider":"stripe","name":"a"},{"provider":"stripe"}])"));
}

TEST(ConnectionCoding, anEmptyListIsAList) {
    EXPECT_THAT(coding::connections("[]"), Optional(SizeIs(0)));
}

TEST(ConnectionCoding, whatIsNoListOfObjectsIsRefused) {
    for (const char *json :
         {"", "{}", "null", "[1]", "[null]", "[[]]", "\"x\"", "[{]", "\xff\xfe"}) {
        EXPECT_TRUE(isRefused(json)) << json;
    }
}

TEST(ConnectionCoding, aValueOfAnotherTypeFailsTheWholeList) {
    for (const char *wrong :
         {R"("id":"no uuid")", R"("id":7)", R"("id":"{0F9619FF-8B86-D011-B42D-00CF4FC964FF}")",
          R"("provider":1)", R"("name":true)", R"("enabled":1)", R"("enabled":"true")",
          R"("extra":5)", R"("showAhrefsAttribution":0)", R"("oauthClientId":[])",
          R"("feedCount":"3")", R"("feedCount":2.5)", R"("feedCount":true)", R"("feedCount":1e30)",
          R"("showContributionGraph":"no")", R"("contributionLayout":1)",
          R"("showStats":null,"name":{})"}) {
        const QByteArray json = QByteArray(R"([{"provider":"p","name":"n",)") + wrong + "}]";
        EXPECT_TRUE(isRefused(json)) << json.constData();
    }
}

TEST(ConnectionCoding, nullCountsAsMissing) {
    const auto read = only(R"([{"id":null,"provider":"rss","name":"n","enabled":null,"extra":null,
        "showAhrefsAttribution":null,"oauthClientId":null,"feedCount":null,
        "showContributionGraph":null,"contributionLayout":null,"showStats":null}])");
    IntegrationConnection expected;
    expected.id = read.id;
    expected.provider = u"rss"_s;
    expected.name = u"n"_s;
    EXPECT_EQ(read, expected);
    EXPECT_TRUE(isRefused(R"([{"provider":null,"name":"n"}])"));
    EXPECT_TRUE(isRefused(R"([{"provider":"rss","name":null}])"));
}

TEST(ConnectionCoding, aWholeNumberMayBeWrittenAsADouble) {
    EXPECT_EQ(only(R"([{"provider":"rss","name":"n","feedCount":5.0}])").feedCount, 5);
    EXPECT_EQ(only(R"([{"provider":"rss","name":"n","feedCount":-2}])").feedCount, -2);
}

TEST(ConnectionCoding, anIdIsReadInEitherCaseAndWrittenInUpperCase) {
    const auto read =
        only(R"([{"id":"0f9619ff-8B86-d011-b42d-00cf4fc964ff","provider":"rss","name":"n"}])");
    EXPECT_EQ(read.id, id);
    EXPECT_EQ(stored(read).value(u"id"_s), u"0F9619FF-8B86-D011-B42D-00CF4FC964FF"_s);
}

TEST(ConnectionCoding, unknownKeysAreIgnored) {
    EXPECT_EQ(only(R"([{"provider":"rss","name":"n","colour":"red"}])").name, u"n"_s);
}

TEST(ConnectionCoding, everyFieldIsWrittenAndReadBack) {
    const IntegrationConnection whole{id,     u"github"_s, u"Zoë · 1"_s, false,   u"octo"_s, false,
                                      u"c"_s, 7,           true,         u"m6"_s, false};
    EXPECT_EQ(only(coding::json({whole})), whole);
    EXPECT_EQ(stored(whole).size(), 11);
}

TEST(ConnectionCoding, absentFieldsAreLeftOut) {
    const QJsonObject record = stored({id, u"stripe"_s, u"Stripe"_s});
    EXPECT_EQ(record.size(), 8);
    for (const auto &key : {u"extra"_s, u"oauthClientId"_s, u"feedCount"_s}) {
        EXPECT_FALSE(record.contains(key)) << key.toStdString();
    }
}

TEST(ConnectionCoding, anEmptyExtraIsKeptApartFromNone) {
    IntegrationConnection connection{id, u"dodo"_s, u"Dodo"_s};
    connection.extra = u""_s;
    EXPECT_EQ(only(coding::json({connection})).extra, u""_s);
}

TEST(ConnectionCoding, theOrderIsKept) {
    const std::vector<IntegrationConnection> three = {
        {id, u"rss"_s, u"b"_s}, {id, u"rss"_s, u"a"_s}, {id, u"rss"_s, u"c"_s}};
    EXPECT_EQ(coding::connections(coding::json(three)), three);
}

TEST(IntegrationConnection, everyFieldCounts) {
    const IntegrationConnection base{id, u"p"_s, u"n"_s};
    std::vector<IntegrationConnection> others(11, base);
    others[0].id = QUuid(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11);
    others[1].provider = u"q"_s;
    others[2].name = u"m"_s;
    others[3].enabled = false;
    others[4].extra = u""_s;
    others[5].showAhrefsAttribution = false;
    others[6].oauthClientId = u""_s;
    others[7].feedCount = 0;
    others[8].showContributionGraph = true;
    others[9].contributionLayout = u"y2"_s;
    others[10].showStats = false;
    for (std::size_t field = 0; field < others.size(); ++field) {
        EXPECT_NE(others[field], base) << field;
    }
}

} // namespace

} // namespace zeph
