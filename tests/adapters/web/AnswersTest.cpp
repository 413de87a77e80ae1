// SPDX-License-Identifier: MIT
#include "adapters/web/Compressed.h"
#include "adapters/web/HttpFixture.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

class HttpAnswers : public HttpFixture {};

TEST_F(HttpAnswers, areNoFailuresWhateverTheirStatus) {
    for (const int status : {200, 201, 204, 304, 400, 401, 403, 404, 429, 500, 502}) {
        for (const char *body : {"", "{\"message\":\"no\"}", "<html>no</html>"}) {
            const bool hasBody = status != 204 && status != 304;
            LoopbackServer server(answering(answer(status, hasBody ? body : "")));
            const HttpResponse response = client.send(request(server.url()));
            EXPECT_EQ(response.status, status);
            EXPECT_EQ(response.body, hasBody ? body : "");
            EXPECT_EQ(response.isSuccess(), status < 300);
        }
    }
}

TEST_F(HttpAnswers, keepsEveryByteOfTheBody) {
    QByteArray bytes;
    for (int byte = 0; byte < 256; ++byte) {
        bytes += static_cast<char>(byte);
    }
    LoopbackServer server(answering(answer(200, bytes.repeated(1000))));
    EXPECT_EQ(client.send(request(server.url())).body, bytes.repeated(1000));
}

TEST_F(HttpAnswers, keepsHeadersInTheirOrder) {
    LoopbackServer server(
        answering(answer(200, {}, {{"A", " one "}, {"b", ""}, {"A", "two: three"}})));
    EXPECT_EQ(client.send(request(server.url())).headers,
              (std::vector<HttpHeader>{
                  {"A", "one"}, {"b", ""}, {"A", "two: three"}, {"Content-Length", "0"}}));
}

TEST_F(HttpAnswers, passesOverInterimAnswersAndTrailers) {
    LoopbackServer server(answering(QByteArray("HTTP/1.1 103 Hints\r\nEarly: 1\r\n\r\n"
                                               "HTTP/1.1 200 Fine\r\nReal: 1\r\n"
                                               "Transfer-Encoding: chunked\r\nTrailer: Late\r\n\r\n"
                                               "3\r\nabc\r\n2\r\nde\r\n0\r\nLate: 1\r\n\r\n")));
    const HttpResponse response = client.send(request(server.url()));
    EXPECT_EQ(response.status, 200);
    EXPECT_EQ(response.body, "abcde");
    EXPECT_EQ(response.header("Real"), "1");
    EXPECT_FALSE(response.header("Early"));
    EXPECT_FALSE(response.header("Late"));
}

TEST_F(HttpAnswers, readsABodyThatEndsWithTheConnection) {
    LoopbackServer server([](LoopbackConnection &connection) {
        connection.readRequest();
        connection.write("HTTP/1.0 200 Fine\r\n\r\nall of it");
    });
    EXPECT_EQ(client.send(request(server.url())).body, "all of it");
}

TEST_F(HttpAnswers, decompressesWhatItOffersToDecompress) {
    const QByteArray text = QByteArray("A text that is worth it. ").repeated(100);
    const std::vector<std::pair<QByteArray, QByteArray>> bodies{
        {"gzip", gzipped(text)},
        {"deflate", deflated(text)},
        {"br", QByteArray::fromHex("0b028068656c6c6f03")},
    };
    for (const auto &[encoding, body] : bodies) {
        LoopbackServer server(answering(answer(200, body, {{"Content-Encoding", encoding}})));
        EXPECT_EQ(client.send(request(server.url())).body,
                  encoding == "br" ? QByteArray("hello") : text);
        EXPECT_THAT(received().back().header("Accept-Encoding")->split(','),
                    testing::Contains(testing::ResultOf(
                        [](const QByteArray &offer) { return offer.trimmed(); }, encoding)));
    }
}

TEST_F(HttpAnswers, failsOnWhatIsNotCompressedAsItSays) {
    LoopbackServer server(answering(answer(200, "plain", {{"Content-Encoding", "gzip"}})));
    EXPECT_EQ(failure(request(server.url())),
              u"The answer of 127.0.0.1 could not be decompressed."_s);
    LoopbackServer unknown(answering(answer(200, "plain", {{"Content-Encoding", "secret"}})));
    EXPECT_EQ(failure(request(unknown.url())),
              u"The answer of 127.0.0.1 could not be decompressed."_s);
}

TEST_F(HttpAnswers, failsOnWhatIsNoHttp) {
    for (const QByteArray &bytes :
         {QByteArray("\r\n\r\nsecret"), QByteArray("220 mail.test ready\r\n"), QByteArray(64, '\0'),
          QByteArray("HTTP/1.1 secret\r\n\r\n")}) {
        LoopbackServer server([&](LoopbackConnection &connection) {
            connection.readRequest();
            connection.write(bytes);
        });
        EXPECT_EQ(failure(request(server.url())),
                  u"The answer of 127.0.0.1 could not be understood."_s);
    }
}

TEST_F(HttpAnswers, failsWhenNobodyListens) {
    QUrl url;
    {
        const LoopbackServer server(answering(answer(200)));
        url = server.url();
    }
    EXPECT_EQ(failure(request(url)), u"127.0.0.1 could not be reached."_s);
}

TEST_F(HttpAnswers, failsWhenNobodyKnowsTheHost) {
    EXPECT_EQ(failure(request(QUrl(u"https://missing.test/secret"_s))),
              u"The host missing.test could not be found."_s);
}

TEST_F(HttpAnswers, failsForWhatIsNoAddressOfTheWeb) {
    for (const QString &url : {u""_s, u"secret"_s, u"file:///etc/passwd"_s, u"ftp://secret/"_s}) {
        EXPECT_EQ(failure(request(QUrl(url))), u"The address is none of the web."_s);
    }
}

} // namespace

} // namespace zeph
