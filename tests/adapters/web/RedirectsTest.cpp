// SPDX-License-Identifier: MIT
#include "adapters/web/HttpFixture.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

class HttpRedirects : public HttpFixture {
protected:
    /// Sends "/" on to `location`, and answers everything else with its target.
    LoopbackServer::Handler redirecting(const QByteArray &location, int status = 302) {
        return answering([location, status](const ReceivedRequest &received) {
            return received.target.startsWith("/?") ? redirect(location, status)
                                                    : answer(200, received.target);
        });
    }
    static HttpRequest post(const QUrl &url, const QByteArray &method = "POST") {
        HttpRequest request = HttpFixture::request(url);
        request.method = method;
        request.body = "secret";
        request.setHeader("Content-Type", "text/plain");
        return request;
    }
    static QByteArray text(const QUrl &url) { return url.toEncoded(); }
};

TEST_F(HttpRedirects, areFollowedWithinTheOrigin) {
    for (const char *location :
         {"next", "/next", "./next", "?next", "//{}/next", "http://{}/next"}) {
        LoopbackServer *self = nullptr;
        LoopbackServer server(answering([&](const ReceivedRequest &received) {
            const QByteArray own = "127.0.0.1:" + QByteArray::number(self->port());
            return received.target == "/?key=secret"
                       ? redirect(QByteArray(location).replace("{}", own))
                       : answer(200, "this");
        }));
        self = &server;
        const HttpResponse response = client.send(request(server.url()));
        EXPECT_EQ(response.status, 200);
        EXPECT_EQ(response.body, "this");
        EXPECT_FALSE(response.header("Location"));
        EXPECT_TRUE(received().back().target.endsWith("next")) << location;
        EXPECT_EQ(received().back().header("Authorization"), "Bearer secret");
        EXPECT_EQ(received().back().header("X-Key"), "secret");
    }
}

TEST_F(HttpRedirects, takeNothingOfTheCallerToAnotherOrigin) {
    LoopbackServer target(answering(answer(200, "there")));
    // Another port of the same host, then another host on the same port.
    LoopbackServer server(redirecting(text(target.url(u"/next"_s))));
    EXPECT_EQ(client.send(request(server.url())).body, "there");
    LoopbackServer moving(answering([&](const ReceivedRequest &received) {
        const QByteArray other = "http://other.test:" + QByteArray::number(moving.port());
        return received.target.startsWith("/?") ? redirect(other + "/next", 301)
                                                : answer(200, "there");
    }));
    EXPECT_EQ(client.send(request(moving.url())).body, "there");
    EXPECT_EQ(received().back().header("Host"), "other.test:" + QByteArray::number(moving.port()));
    ASSERT_EQ(received().size(), 4U);
    for (const std::size_t index : {1U, 3U}) {
        const ReceivedRequest arrived = received().at(index);
        EXPECT_EQ(arrived.target, "/next");
        EXPECT_FALSE(arrived.header("Authorization"));
        EXPECT_FALSE(arrived.header("X-Key"));
        EXPECT_FALSE(arrived.header("Referer"));
        EXPECT_EQ(arrived.header("User-Agent"), "Tavi");
    }
}

TEST_F(HttpRedirects, takeNothingOfTheCallerToAnotherScheme) {
    LoopbackServer secure(answering(answer(200, "there")), authority.serverContext());
    LoopbackServer server(redirecting(text(secure.url(u"/next"_s))));
    EXPECT_EQ(client.send(request(server.url())).body, "there");
    EXPECT_FALSE(received().back().header("Authorization"));
    EXPECT_FALSE(received().back().header("X-Key"));
}

TEST_F(HttpRedirects, takeNothingBackEither) {
    LoopbackServer *first = nullptr;
    LoopbackServer second(answering([&](const ReceivedRequest & /*received*/) {
        return redirect(text(first->url(u"/back"_s)));
    }));
    LoopbackServer server(redirecting(text(second.url(u"/there"_s))));
    first = &server;
    EXPECT_EQ(client.send(request(server.url())).body, "/back");
    EXPECT_FALSE(received().back().header("Authorization"));
    EXPECT_FALSE(received().back().header("X-Key"));
}

TEST_F(HttpRedirects, takeNoNameAndWordOfTheAddressToAnotherOrigin) {
    LoopbackServer target(answering(answer(200, "there")));
    LoopbackServer server(
        redirecting("//127.0.0.1:" + QByteArray::number(target.port()) + "/next"));
    HttpRequest sent;
    sent.url = server.url(u"/?"_s);
    sent.url.setUserName(u"name"_s);
    sent.url.setPassword(u"secret"_s);
    EXPECT_EQ(client.send(sent).body, "there");
    EXPECT_TRUE(received().front().header("Authorization"));
    EXPECT_FALSE(received().back().header("Authorization"));
}

TEST_F(HttpRedirects, neverLeadOutOfEncryption) {
    LoopbackServer plain(answering(answer(200, "there")));
    LoopbackServer server(redirecting(text(plain.url(u"/secret"_s))), authority.serverContext());
    EXPECT_EQ(failure(request(server.url())),
              u"127.0.0.1 redirected to an address without encryption."_s);
    EXPECT_EQ(plain.connections(), 0);
}

TEST_F(HttpRedirects, neverLeadOutOfTheWeb) {
    for (const char *location : {"file:///etc/passwd", "ftp://127.0.0.1/secret", "data:,secret",
                                 "http://", "http://[secret/", "mailto:secret@own.test"}) {
        LoopbackServer server(redirecting(location));
        EXPECT_EQ(failure(request(server.url())),
                  u"127.0.0.1 redirected to what is no address of the web."_s);
    }
}

TEST_F(HttpRedirects, endAfterFive) {
    const auto counting = [this](int last) {
        return answering([last](const ReceivedRequest &received) {
            const int count = received.target.mid(1).split('?').front().toInt();
            return count < last ? redirect('/' + QByteArray::number(count + 1))
                                : answer(200, "there");
        });
    };
    LoopbackServer far(counting(5));
    EXPECT_EQ(client.send(request(far.url(u"/0"_s))).body, "there");
    LoopbackServer tooFar(counting(6));
    EXPECT_EQ(failure(request(tooFar.url(u"/0"_s))), u"127.0.0.1 redirected more than 5 times."_s);
}

TEST_F(HttpRedirects, endInACircle) {
    LoopbackServer server(answering(redirect("/secret", 301)));
    EXPECT_EQ(failure(request(server.url())), u"127.0.0.1 redirected more than 5 times."_s);
    EXPECT_EQ(received().size(), 6U);
}

TEST_F(HttpRedirects, shareOneTime) {
    LoopbackServer server([](LoopbackConnection &connection) {
        while (connection.readRequest() && connection.pause(std::chrono::milliseconds(120))) {
            connection.write(redirect("/secret"));
        }
    });
    EXPECT_EQ(failure(request(server.url(), std::chrono::milliseconds(300))),
              u"127.0.0.1 did not answer in time."_s);
}

TEST_F(HttpRedirects, turnAPostIntoAGet) {
    for (const int status : {301, 302, 303}) {
        LoopbackServer server(redirecting("/next", status));
        EXPECT_EQ(client.send(post(server.url())).body, "/next");
        const ReceivedRequest arrived = received().back();
        EXPECT_EQ(arrived.method, "GET");
        EXPECT_EQ(arrived.body, "");
        EXPECT_FALSE(arrived.header("Content-Type"));
        EXPECT_FALSE(arrived.header("Content-Length"));
        EXPECT_EQ(arrived.header("X-Key"), "secret");
    }
}

TEST_F(HttpRedirects, keepTheMethodElse) {
    const std::vector<std::pair<int, QByteArray>> kept{
        {307, "POST"}, {308, "POST"}, {301, "PUT"}, {302, "DELETE"}, {307, "PATCH"}};
    for (const auto &[status, method] : kept) {
        LoopbackServer server(redirecting("/next", status));
        EXPECT_EQ(client.send(post(server.url(), method)).body, "/next");
        EXPECT_EQ(received().back().method, method);
        EXPECT_EQ(received().back().body, "secret");
        EXPECT_EQ(received().back().header("Content-Type"), "text/plain");
    }
    LoopbackServer server(redirecting("/next", 303));
    EXPECT_EQ(client.send(post(server.url(), "PUT")).body, "/next");
    EXPECT_EQ(received().back().method, "GET");
    HttpRequest head = request(server.url());
    head.method = "HEAD";
    LoopbackServer headless(answering([](const ReceivedRequest &received) {
        return received.target == "/next"
                   ? QByteArray("HTTP/1.1 204 None\r\n\r\n")
                   : QByteArray("HTTP/1.1 303 See\r\nLocation: /next\r\n\r\n");
    }));
    head.url = headless.url();
    EXPECT_EQ(client.send(head).status, 204);
    EXPECT_EQ(received().back().method, "HEAD");
}

TEST_F(HttpRedirects, takeNoBodyToAnotherOrigin) {
    for (const int status : {307, 308}) {
        LoopbackServer target(answering(answer(200)));
        LoopbackServer server(redirecting(text(target.url()), status));
        EXPECT_EQ(failure(post(server.url())),
                  u"127.0.0.1 redirected what was sent to another host."_s);
        EXPECT_EQ(target.connections(), 0);
    }
}

TEST_F(HttpRedirects, needAPlaceToGoTo) {
    LoopbackServer nowhere(answering(answer(302, "here")));
    EXPECT_EQ(client.send(request(nowhere.url())).status, 302);
    LoopbackServer empty(answering(redirect("")));
    EXPECT_EQ(client.send(request(empty.url())).status, 302);
    for (const int status : {200, 201, 300, 304, 305, 399}) {
        LoopbackServer server(redirecting("/next", status));
        EXPECT_EQ(client.send(request(server.url())).status, status);
    }
}

} // namespace

} // namespace zeph
