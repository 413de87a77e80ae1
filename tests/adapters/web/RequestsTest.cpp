// SPDX-License-Identifier: MIT
#include "adapters/web/HttpFixture.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

class HttpRequests : public HttpFixture {
protected:
    HttpRequests() : server(answering(answer(200, "fine"))) {}

    /// What arrives of `sent`, in HTTP/1.1.
    ReceivedRequest arrived(HttpRequest sent) {
        if (sent.url.isEmpty()) {
            sent.url = server.url();
        }
        EXPECT_EQ(client.send(sent).status, 200);
        return received().back();
    }

    LoopbackServer server;
};

TEST_F(HttpRequests, askWithAGet) {
    HttpRequest sent;
    sent.url = server.url(u"/a/../b%20c?d=e f&g=ä#h"_s);
    const ReceivedRequest received = arrived(sent);
    EXPECT_EQ(received.method, "GET");
    EXPECT_EQ(received.target, "/b%20c?d=e%20f&g=%C3%A4");
    EXPECT_EQ(received.header("Host"), "127.0.0.1:" + QByteArray::number(server.port()));
    EXPECT_EQ(received.header("User-Agent"), "Tavi");
    EXPECT_FALSE(received.header("Content-Type"));
    EXPECT_FALSE(received.header("Content-Length"));
    EXPECT_FALSE(received.header("Authorization"));
}

TEST_F(HttpRequests, sayWhoAsks) {
    HttpOptions options;
    options.userAgent = "Tavi/1.2.3";
    CurlHttpClient named(library, options);
    HttpRequest sent;
    sent.url = server.url();
    named.send(sent);
    EXPECT_EQ(received().back().header("User-Agent"), "Tavi/1.2.3");
    sent.setHeader("user-agent", "Somebody");
    named.send(sent);
    EXPECT_EQ(received().back().header("User-Agent"), "Somebody");
}

TEST_F(HttpRequests, carryTheHeadersOfTheCaller) {
    HttpRequest sent;
    sent.headers = {{"Authorization", "Bearer a:b"},
                    {"X-Empty", ""},
                    {"Accept", "text/plain"},
                    {"X-Two", "1"},
                    {"X-Two", "2"}};
    const ReceivedRequest received = arrived(sent);
    EXPECT_EQ(received.header("Authorization"), "Bearer a:b");
    EXPECT_EQ(received.header("X-Empty"), "");
    EXPECT_EQ(received.header("Accept"), "text/plain");
    EXPECT_THAT(received.headers,
                testing::IsSupersetOf(std::vector<HttpHeader>{{"X-Two", "1"}, {"X-Two", "2"}}));
}

TEST_F(HttpRequests, frameTheMessageThemselves) {
    HttpRequest sent;
    sent.method = "POST";
    sent.body = "body";
    sent.headers = {{"Content-Length", "100"},
                    {"transfer-encoding", "chunked"},
                    {"Connection", "close"},
                    {"Expect", "100-continue"}};
    const ReceivedRequest received = arrived(sent);
    EXPECT_EQ(received.body, "body");
    EXPECT_EQ(received.header("Content-Length"), "4");
    EXPECT_FALSE(received.header("Transfer-Encoding"));
    EXPECT_FALSE(received.header("Connection"));
    EXPECT_FALSE(received.header("Expect"));
}

TEST_F(HttpRequests, carryABodyAsItIs) {
    HttpRequest sent;
    sent.method = "POST";
    sent.body = QByteArray("{\"a\":\0}", 7).repeated(300'000);
    const ReceivedRequest bare = arrived(sent);
    EXPECT_EQ(bare.body, sent.body);
    EXPECT_FALSE(bare.header("Content-Type"));
    EXPECT_FALSE(bare.header("Expect"));
    sent.setHeader("Content-Type", "application/json");
    EXPECT_EQ(arrived(sent).header("Content-Type"), "application/json");
}

TEST_F(HttpRequests, useTheMethodOfTheCaller) {
    for (const char *method : {"POST", "PUT", "PATCH", "DELETE", "OPTIONS", "PROPFIND"}) {
        HttpRequest sent;
        sent.method = method;
        EXPECT_EQ(arrived(sent).method, method);
        sent.body = "body";
        EXPECT_EQ(arrived(sent).method, method);
        EXPECT_EQ(received().back().body, "body");
    }
}

TEST_F(HttpRequests, readNoBodyAfterHead) {
    LoopbackServer headless(answering("HTTP/1.1 200 Fine\r\nContent-Length: 99999999999\r\n\r\n"));
    HttpRequest sent;
    sent.method = "HEAD";
    sent.url = headless.url();
    const HttpResponse response = client.send(sent);
    EXPECT_EQ(response.status, 200);
    EXPECT_EQ(response.body, "");
    EXPECT_EQ(received().back().method, "HEAD");
}

TEST_F(HttpRequests, areNotSentWithALineOfTheirOwn) {
    const QString refusal = u"The request to 127.0.0.1 has a header that can't be sent."_s;
    for (const HttpHeader &header : std::vector<HttpHeader>{{"X-Key", "secret\r\nX-Other: 1"},
                                                            {"X-Key", "secret\n"},
                                                            {"X-Key", QByteArray("a\0secret", 8)},
                                                            {"X-Key: 1\r\nX-Other", "secret"},
                                                            {"X Key", "secret"},
                                                            {"", "secret"}}) {
        HttpRequest sent = request(server.url());
        sent.headers.push_back(header);
        EXPECT_EQ(failure(sent), refusal);
    }
    HttpRequest sent = request(server.url());
    sent.method = "GET /secret HTTP/1.1\r\nX-Other: 1\r\n";
    EXPECT_EQ(failure(sent), refusal);
    EXPECT_EQ(server.connections(), 0);
}

TEST_F(HttpRequests, bringNoCookieBack) {
    LoopbackServer baker(answering([](const ReceivedRequest &received) {
        const std::vector<HttpHeader> headers{{"Set-Cookie", "crumb=1; Path=/"},
                                              {"Location", "/next"}};
        return answer(received.target == "/" ? 302 : 200, {}, headers);
    }));
    HttpRequest sent;
    sent.url = baker.url();
    client.send(sent);
    client.send(sent);
    ASSERT_EQ(received().size(), 4U);
    for (const ReceivedRequest &received : received()) {
        EXPECT_FALSE(received.header("Cookie"));
    }
}

TEST_F(HttpRequests, askAnewEachTime) {
    LoopbackServer keeper(
        answering(answer(200, "old", {{"Cache-Control", "max-age=3600"}, {"ETag", "\"1\""}})));
    HttpRequest sent;
    sent.url = keeper.url();
    client.send(sent);
    client.send(sent);
    ASSERT_EQ(received().size(), 2U);
    EXPECT_FALSE(received().back().header("If-None-Match"));
}

TEST_F(HttpRequests, takeTheNameAndWordOfTheAddress) {
    HttpRequest sent;
    sent.url = server.url();
    sent.url.setUserName(u"näme"_s);
    sent.url.setPassword(u"a:b@c"_s);
    EXPECT_EQ(arrived(sent).header("Authorization"),
              "Basic " + QByteArray("näme:a:b@c").toBase64());
}

TEST_F(HttpRequests, timeOutAtOnceWithoutTime) {
    for (const auto timeout : {std::chrono::milliseconds(0), std::chrono::milliseconds(-1)}) {
        EXPECT_EQ(failure(request(server.url(), timeout)), u"127.0.0.1 did not answer in time."_s);
    }
    EXPECT_EQ(client.send(request(server.url(), std::chrono::milliseconds::max())).status, 200);
}

} // namespace

} // namespace zeph
