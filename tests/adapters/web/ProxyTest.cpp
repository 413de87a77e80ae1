// SPDX-License-Identifier: MIT
#include "adapters/web/HttpFixture.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

class HttpProxies : public HttpFixture {
protected:
    static QByteArray text(const LoopbackServer &proxy) { return proxy.url().toEncoded(); }
};

TEST_F(HttpProxies, carryWhatIsPlain) {
    LoopbackServer proxy(answering(answer(200, "by proxy")));
    const ScopedVariable variable("http_proxy", text(proxy));
    const HttpResponse response = client.send(request(QUrl(u"http://missing.test/path?a=b"_s)));
    EXPECT_EQ(response.body, "by proxy");
    EXPECT_EQ(received().front().target, "http://missing.test/path?a=b");
    EXPECT_EQ(received().front().header("Authorization"), "Bearer secret");
}

TEST_F(HttpProxies, learnOnlyTheHostOfWhatIsEncrypted) {
    std::vector<ReceivedRequest> seen;
    const auto context = authority.serverContext();
    LoopbackServer proxy([&](LoopbackConnection &connection) {
        for (auto request = connection.readRequest(); request; request = connection.readRequest()) {
            seen.push_back(*request);
            const bool isTunnel = request->method == "CONNECT";
            connection.write(isTunnel ? QByteArray("HTTP/1.1 200 Go\r\nVia: proxy\r\n\r\n")
                                      : answer(200, "through"));
            if (isTunnel && !connection.secure(context.get())) {
                return;
            }
        }
    });
    const ScopedVariable variable("https_proxy", text(proxy));
    const HttpResponse response = client.send(request(QUrl(u"https://own.test/path?a=b"_s)));
    EXPECT_EQ(response.body, "through");
    EXPECT_FALSE(response.header("Via"));
    ASSERT_EQ(seen.size(), 2U);
    EXPECT_EQ(seen[0].target, "own.test:443");
    EXPECT_FALSE(seen[0].header("Authorization"));
    EXPECT_FALSE(seen[0].header("X-Key"));
    EXPECT_EQ(seen[1].target, "/path?a=b");
    EXPECT_EQ(seen[1].header("Authorization"), "Bearer secret");
}

TEST_F(HttpProxies, canNotVouchForAHost) {
    const TestAuthority stranger("Stranger");
    const auto context = stranger.serverContext();
    LoopbackServer proxy([&](LoopbackConnection &connection) {
        connection.readRequest();
        connection.write("HTTP/1.1 200 Go\r\n\r\n");
        connection.secure(context.get());
    });
    const ScopedVariable variable("https_proxy", text(proxy));
    EXPECT_EQ(failure(request(QUrl(u"https://own.test/secret"_s))),
              u"The certificate of own.test is not trusted."_s);
}

TEST_F(HttpProxies, mayRefuse) {
    for (const int status : {403, 407, 502}) {
        LoopbackServer proxy(answering(answer(status, "secret")));
        const ScopedVariable variable("https_proxy", text(proxy));
        EXPECT_EQ(failure(request(QUrl(u"https://own.test/secret"_s))),
                  u"The proxy refused the way to own.test."_s);
    }
}

TEST_F(HttpProxies, mayBeGone) {
    const ScopedVariable variable("https_proxy", QByteArray("http://missing.test:3128"));
    EXPECT_EQ(failure(request(QUrl(u"https://own.test/secret"_s))),
              u"The proxy on the way to own.test could not be found."_s);
}

TEST_F(HttpProxies, areNotAskedWhereTheyAreNotWanted) {
    LoopbackServer proxy(answering(answer(200, "by proxy")));
    LoopbackServer server(answering(answer(200, "straight")));
    const ScopedVariable variable("http_proxy", text(proxy));
    const ScopedVariable exception("no_proxy", QByteArray("127.0.0.1"));
    EXPECT_EQ(client.send(request(server.url())).body, "straight");
    EXPECT_EQ(proxy.connections(), 0);
}

} // namespace

} // namespace zeph
