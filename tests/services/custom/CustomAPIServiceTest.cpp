// SPDX-License-Identifier: MIT
#include "services/custom/CustomAPIService.h"

#include "support/FakeHttpClient.h"
#include "support/Fixture.h"
#include "support/QtPrinters.h"
#include "support/RequestText.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const QUuid configId(u"0b5f2f0a-6c0e-4b6b-9c0b-2f7d3c1e0001"_s);

HTTPHeaderEntry header(const QString &name, const QString &value) {
    return {QUuid::createUuid(), name, value};
}

class CustomAPIServiceTest : public testing::Test {
protected:
    static CustomAPIConfig config(const std::vector<QString> &paths) {
        CustomAPIConfig config{
            configId, u"Status"_s, u"https://status.example.com/v1/now?all=1"_s, {}, {}};
        for (const QString &path : paths) {
            config.fields.push_back({QUuid::createUuid(), u"Label of "_s + path, path});
        }
        return config;
    }

    void answer(const QByteArray &body, int status = 200) {
        server = [body, status](const HttpRequest &) { return HttpResponse{status, {}, body}; };
    }

    /// The text of the request that these headers make.
    std::string sentWith(const std::vector<HTTPHeaderEntry> &headers) {
        answer("{}");
        service.fetchJSON(u"https://example.com/"_s, headers);
        return requestText(http.requests().back());
    }

    /// The error that stands in the result, or the values with commas.
    QString outcome(const CustomAPIConfig &config) {
        const CustomAPIResult result = service.fetch(config);
        if (result.error) {
            EXPECT_THAT(result.values, IsEmpty());
            return *result.error;
        }
        QStringList values;
        for (const CustomAPIValue &value : result.values) {
            values.append(value.value);
        }
        return values.join(u',');
    }

    FakeHttpClient::Handler server = [](const HttpRequest &) { return HttpResponse{404, {}, ""}; };
    FakeHttpClient http{[this](const HttpRequest &request) { return server(request); }};
    CustomAPIService service{http};
};

} // namespace

TEST_F(CustomAPIServiceTest, listsAllThatAnEndpointHasWhateverItsFields) {
    answer(R"({"b":[1,2,3,4,5,6],"a":{"c":"x"},"d.e":7})");
    const EndpointListing listing = service.list(config({u"nowhere"_s}));
    EXPECT_EQ(listing.error, std::nullopt);
    ASSERT_EQ(listing.leaves.size(), 6U);
    EXPECT_EQ(listing.leaves.front(), (JsonLeaf{u"a.c"_s, u"x"_s}));
    EXPECT_EQ(listing.leaves.back(), (JsonLeaf{u"b.4"_s, u"5"_s}));
    answer("{}");
    EXPECT_EQ(service.list(config({})), EndpointListing());
}

TEST_F(CustomAPIServiceTest, tellsWhyNothingCanBeListed) {
    EXPECT_EQ(service.list(config({})), (EndpointListing{{}, u"HTTP 404"_s}));
    auto bare = config({});
    bare.urlString = u"word"_s;
    EXPECT_EQ(service.list(bare), (EndpointListing{{}, u"Invalid URL"_s}));
}

TEST_F(CustomAPIServiceTest, sendsOneGetThatAcceptsJson) {
    answer(fixture("custom/status.json"));
    service.fetch(config({u"status"_s}));
    ASSERT_EQ(http.requests().size(), 1U);
    const HttpRequest request = http.requests().front();
    EXPECT_EQ(requestText(request),
              "GET https://status.example.com/v1/now?all=1\nAccept: application/json");
    EXPECT_EQ(request.timeout, std::chrono::seconds(60));
}

TEST_F(CustomAPIServiceTest, sendsHeadersInOrderWithTrimmedNamesAndUntouchedValues) {
    EXPECT_EQ(sentWith({header(u" X-Key\t"_s, u" secret "_s), header(u"X-Größe"_s, u"größer"_s),
                        header(u"X-Empty"_s, u""_s)}),
              "GET https://example.com/\nAccept: application/json\nX-Key:  secret \n"
              "X-Größe: größer\nX-Empty: ");
}

TEST_F(CustomAPIServiceTest, skipsAHeaderWithoutAName) {
    EXPECT_EQ(sentWith({header(u""_s, u"a"_s), header(u" \t "_s, u"b"_s)}),
              "GET https://example.com/\nAccept: application/json");
}

TEST_F(CustomAPIServiceTest, letsALaterHeaderReplaceAnEarlierOneAndTheDefault) {
    EXPECT_EQ(sentWith({header(u"X-Key"_s, u"1"_s), header(u"x-key "_s, u"2"_s)}),
              "GET https://example.com/\nAccept: application/json\nX-Key: 2");
    EXPECT_EQ(sentWith({header(u"accept"_s, u"text/plain"_s)}),
              "GET https://example.com/\nAccept: text/plain");
}

TEST_F(CustomAPIServiceTest, refusesAnAddressWithoutAHostBeforeTheNetwork) {
    for (const QString &url :
         {u""_s, u"status"_s, u"status.example.com/v1"_s, u"/v1/now"_s, u"https:///v1"_s,
          u"mailto:a@example.com"_s, u"file:///etc/passwd"_s, u"https://a b.com"_s,
          u"https://example.com:port/"_s, u"http://[::1"_s}) {
        CustomAPIConfig broken = config({u"status"_s});
        broken.urlString = url;
        EXPECT_EQ(outcome(broken), u"Invalid URL"_s) << qPrintable(url);
    }
    EXPECT_THAT(http.requests(), IsEmpty());
}

TEST_F(CustomAPIServiceTest, formatsTheValuesOfItsFieldsInOrder) {
    answer(fixture("custom/status.json"));
    CustomAPIConfig asked = config({u"signups.total"_s, u"servers.1.region"_s, u"load"_s});
    const CustomAPIResult result = service.fetch(asked);
    EXPECT_EQ(result.id, configId);
    EXPECT_EQ(result.name, u"Status"_s);
    EXPECT_EQ(result.error, std::nullopt);
    EXPECT_THAT(
        result.values,
        ElementsAre(CustomAPIValue{asked.fields[0].id, u"Label of signups.total"_s, u"128943"_s},
                    CustomAPIValue{asked.fields[1].id, u"Label of servers.1.region"_s, u"Zürich"_s},
                    CustomAPIValue{asked.fields[2].id, u"Label of load"_s, u"3.46"_s}));
}

TEST_F(CustomAPIServiceTest, showsWhatIsFoundWithoutAnErrorForTheRest) {
    answer(fixture("custom/status.json"));
    EXPECT_EQ(outcome(config({u"nothing.here"_s, u"healthy"_s, u"servers"_s, u"since"_s})),
              u"yes,null"_s);
}

TEST_F(CustomAPIServiceTest, saysWhenNoFieldIsFound) {
    answer(fixture("custom/status.json"));
    EXPECT_EQ(outcome(config({u"nothing.here"_s, u"servers.2.name"_s})),
              u"selected paths not found in response"_s);
}

TEST_F(CustomAPIServiceTest, saysSoForTheOnlyPathThatStopsOnAnObjectOrAnArray) {
    answer(fixture("custom/status.json"));
    EXPECT_EQ(outcome(config({u"signups"_s})), u"selected paths not found in response"_s);
    EXPECT_EQ(outcome(config({u"servers"_s})), u"selected paths not found in response"_s);
    EXPECT_EQ(outcome(config({u""_s})), u"selected paths not found in response"_s);
}

TEST_F(CustomAPIServiceTest, hasAnEmptyResultWithoutFields) {
    answer(fixture("custom/status.json"));
    const CustomAPIResult result = service.fetch(config({}));
    EXPECT_THAT(result.values, IsEmpty());
    EXPECT_EQ(result.error, std::nullopt);
    EXPECT_EQ(http.requests().size(), 1U);
}

TEST_F(CustomAPIServiceTest, readsABareValue) {
    for (const auto &[body, value] :
         {std::pair("42", u"42"_s), std::pair(" \"up\" ", u"up"_s), std::pair("true", u"yes"_s),
          std::pair("\xEF\xBB\xBF"
                    "1.5",
                    u"1.50"_s)}) {
        answer(body);
        EXPECT_EQ(outcome(config({u""_s})), value) << body;
    }
}

TEST_F(CustomAPIServiceTest, tellsTheStatusOfARefusalAndNotItsBody) {
    for (const int status : {199, 300, 304, 401, 404, 500, 502}) {
        answer(R"({"message":"the service's own words"})", status);
        EXPECT_EQ(outcome(config({u"message"_s})), u"HTTP %1"_s.arg(status));
    }
    answer(fixture("bad-gateway.html"), 502);
    EXPECT_EQ(outcome(config({u"message"_s})), u"HTTP 502"_s);
}

TEST_F(CustomAPIServiceTest, takesEveryStatusOfSuccess) {
    for (const int status : {200, 201, 203, 299}) {
        answer(R"({"a":1})", status);
        EXPECT_EQ(outcome(config({u"a"_s})), u"1"_s) << status;
    }
}

TEST_F(CustomAPIServiceTest, passesTheWordsOfATransportErrorOn) {
    server = [](const HttpRequest &) -> HttpResponse {
        throw TransportError(u"status.example.com could not be reached."_s);
    };
    EXPECT_EQ(outcome(config({u"a"_s})), u"status.example.com could not be reached."_s);
}

TEST_F(CustomAPIServiceTest, saysThatAnAnswerCanNotBeRead) {
    for (const char *body : {"", "<html>", "{\"a\":", "[1,2", "{\"a\":1}}", "nope", "\"\xFF\""}) {
        answer(body);
        EXPECT_TRUE(outcome(config({u"a"_s})).startsWith(u"The answer could not be read"_s))
            << body;
    }
    answer(fixture("bad-gateway.html"));
    EXPECT_TRUE(outcome(config({})).startsWith(u"The answer could not be read"_s));
}

TEST_F(CustomAPIServiceTest, endsInWordsWhenCancelled) {
    http.cancelAll();
    EXPECT_EQ(outcome(config({u"a"_s})), u"The request was cancelled."_s);
}

TEST_F(CustomAPIServiceTest, namesItsDomainInItsErrors) {
    const ServiceError error = CustomAPIService::err(u"words"_s);
    EXPECT_EQ(error.domain(), u"CustomAPI"_s);
    EXPECT_EQ(error.code(), 0);
    EXPECT_EQ(error.description(), u"words"_s);
    answer("", 500);
    EXPECT_THROW(service.fetchJSON(u"https://example.com"_s, {}), ServiceError);
}

} // namespace zeph
