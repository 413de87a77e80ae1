// SPDX-License-Identifier: MIT
#include "adapters/web/Compressed.h"
#include "adapters/web/FullBacklog.h"
#include "adapters/web/HttpFixture.h"
#include "adapters/web/ScriptedNames.h"

#include <QElapsedTimer>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

using Milliseconds = std::chrono::milliseconds;

const QString late = u"127.0.0.1 did not answer in time."_s;
const QString cutOff = u"127.0.0.1 ended the connection too early."_s;
const QString notUnderstood = u"The answer of 127.0.0.1 could not be understood."_s;
const QString tooManyHeaders = u"The answer of 127.0.0.1 has too many headers."_s;
const QString tooLarge = u"The answer of 127.0.0.1 is larger than 16 MiB."_s;

class HttpLimits : public HttpFixture {
protected:
    /// Says `bytes` after a request, then what `afterwards` does.
    static LoopbackServer::Handler saying(
        const QByteArray &bytes, const LoopbackServer::Handler &afterwards = [](auto &) {}) {
        return [=](LoopbackConnection &connection) {
            if (connection.readRequest() && connection.write(bytes)) {
                afterwards(connection);
            }
        };
    }
    QString failureOf(const LoopbackServer::Handler &handler,
                      Milliseconds timeout = std::chrono::seconds(20)) {
        LoopbackServer server(handler);
        return failure(request(server.url(u"/secret"_s), timeout));
    }
    static void stay(LoopbackConnection &connection) { connection.waitForEnd(); }
};

/// Says the same again and again, as long as somebody listens.
LoopbackServer::Handler repeating(const QByteArray &bytes) {
    return [bytes](LoopbackConnection &connection) {
        while (connection.write(bytes)) {
        }
    };
}

TEST_F(HttpLimits, endAServerThatNeverAnswers) {
    EXPECT_EQ(failureOf(saying("", stay), Milliseconds(200)), late);
}

TEST_F(HttpLimits, endAServerThatStopsInTheMiddle) {
    EXPECT_EQ(failureOf(saying("HTTP/1.1 200 Fi", stay), Milliseconds(200)), late);
    EXPECT_EQ(failureOf(saying("HTTP/1.1 200 Fine\r\nA: b\r\n", stay), Milliseconds(200)), late);
    EXPECT_EQ(failureOf(saying("HTTP/1.1 200 Fine\r\nContent-Length: 9\r\n\r\nsec", stay),
                        Milliseconds(200)),
              late);
}

TEST_F(HttpLimits, endAServerThatTrickles) {
    const auto trickle = [](LoopbackConnection &connection) {
        connection.writeSlowly(answer(200, QByteArray(1000, 'a')), Milliseconds(20));
    };
    EXPECT_EQ(failureOf(saying("", trickle), Milliseconds(300)), late);
    const auto body = [](LoopbackConnection &connection) {
        connection.writeSlowly(QByteArray(1000, 'a'), Milliseconds(20));
    };
    EXPECT_EQ(failureOf(saying("HTTP/1.1 200 Fine\r\n\r\n", body), Milliseconds(300)), late);
}

TEST_F(HttpLimits, waitForAServerThatIsSlowButInTime) {
    LoopbackServer server(saying("", [](LoopbackConnection &connection) {
        connection.writeSlowly(answer(200, "slow"), Milliseconds(5));
    }));
    EXPECT_EQ(client.send(request(server.url())).body, "slow");
}

TEST_F(HttpLimits, endAHandshakeWithoutAnswer) {
    LoopbackServer server(&HttpLimits::stay);
    EXPECT_EQ(failure(request(server.url(u"/secret"_s, u"https"_s), Milliseconds(200))), late);
}

TEST_F(HttpLimits, endAConnectionThatIsNotTaken) {
    const FullBacklog backlog;
    EXPECT_EQ(failure(request(backlog.url(), Milliseconds(200))), late);
}

TEST_F(HttpLimits, endALookUpThatHangs) {
    QElapsedTimer elapsed;
    elapsed.start();
    EXPECT_EQ(failure(request(QUrl(u"http://stuck.test/secret"_s), Milliseconds(200))),
              u"stuck.test did not answer in time."_s);
    EXPECT_EQ(ScriptedNames::stuck(), 1); // it is not waited for
    ScriptedNames::release();
}

TEST_F(HttpLimits, endAnUploadThatIsNotRead) {
    LoopbackServer server([](LoopbackConnection &connection) { connection.waitForAbsence(); });
    HttpRequest upload = request(server.url(), Milliseconds(200));
    upload.method = "POST";
    upload.body = QByteArray(32 * 1024 * 1024, 'a');
    EXPECT_EQ(failure(upload), late);
}

TEST_F(HttpLimits, tellAnAnswerThatWasCutOff) {
    const auto reset = [](LoopbackConnection &connection) { connection.reset(); };
    EXPECT_EQ(failureOf([](LoopbackConnection &connection) { connection.readRequest(); }), cutOff);
    EXPECT_EQ(failureOf(saying("", reset)), cutOff);
    EXPECT_EQ(failureOf(saying("HTTP/1.1 200 Fine\r\nContent-Length: 9\r\n\r\nsecret")), cutOff);
    EXPECT_EQ(failureOf(saying("HTTP/1.1 200 Fine\r\nContent-Length: 9\r\n\r\nsecret", reset)),
              cutOff);
    EXPECT_EQ(failureOf(saying("HTTP/1.1 200 Fine\r\nTransfer-Encoding: chunked\r\n\r\n"
                               "9\r\nsecret")),
              cutOff);
    const QByteArray whole = gzipped("secret");
    EXPECT_EQ(failureOf(saying("HTTP/1.1 200 Fine\r\nContent-Encoding: gzip\r\nContent-Length: " +
                               QByteArray::number(whole.size()) + "\r\n\r\n" + whole.first(12))),
              cutOff);
}

TEST_F(HttpLimits, believeALengthThatIsTooShort) {
    LoopbackServer server(saying("HTTP/1.1 200 Fine\r\nContent-Length: 4\r\n\r\nfour and more"));
    EXPECT_EQ(client.send(request(server.url())).body, "four");
}

TEST_F(HttpLimits, refuseALengthThatIsNone) {
    EXPECT_EQ(failureOf(saying("HTTP/1.1 200 Fine\r\nContent-Length: -4\r\n\r\nbody")),
              notUnderstood);
    EXPECT_EQ(failureOf(saying("HTTP/1.1 200 Fine\r\nContent-Length: four\r\n\r\nbody")),
              notUnderstood);
    EXPECT_EQ(failureOf(saying("HTTP/1.1 200 Fine\r\nTransfer-Encoding: chunked\r\n\r\nsecret")),
              cutOff); // the library makes no difference
}

TEST_F(HttpLimits, refuseABodyThatSaysItIsTooLarge) {
    EXPECT_EQ(failureOf(saying("HTTP/1.1 200 Fine\r\nContent-Length: 1073741824\r\n\r\n", stay)),
              tooLarge);
    EXPECT_EQ(failureOf(saying("HTTP/1.1 200 Fine\r\nContent-Length: 99999999999999999999999\r\n"
                               "\r\n",
                               stay)),
              tooLarge);
}

TEST_F(HttpLimits, cutOffAGibibyte) {
    // More than the limit gets on its way only as far as the sockets hold it.
    constexpr qint64 mebibyte = 1024 * 1024;
    std::atomic<qint64> sent = 0;
    const QByteArray piece(mebibyte, 'a');
    const QByteArray chunk = "100000\r\n" + piece + "\r\n";
    const auto flooding = [&sent](const QByteArray &bytes) {
        return [&sent, bytes](LoopbackConnection &connection) {
            for (sent = 0; sent < 1024 && connection.write(bytes); ++sent) {
            }
        };
    };
    EXPECT_EQ(failureOf(saying("HTTP/1.1 200 Fine\r\n\r\n", flooding(piece))), tooLarge);
    EXPECT_LT(sent, 40);
    EXPECT_EQ(failureOf(saying("HTTP/1.1 200 Fine\r\nTransfer-Encoding: chunked\r\n\r\n",
                               flooding(chunk))),
              tooLarge);
    EXPECT_LT(sent, 40);
}

TEST_F(HttpLimits, cutOffWhatGrowsWhenDecompressed) {
    const QByteArray zeros(64 * 1024 * 1024, '\0');
    const QByteArray once = gzipped(zeros);
    const QByteArray twice = gzipped(once);
    ASSERT_LT(twice.size(), 16 * 1024);
    EXPECT_EQ(failureOf(answering(answer(200, once, {{"Content-Encoding", "gzip"}}))), tooLarge);
    EXPECT_EQ(failureOf(answering(answer(200, twice, {{"Content-Encoding", "gzip, gzip"}}))),
              tooLarge);
}

TEST_F(HttpLimits, letTheLargestBodyPass) {
    HttpOptions options = trusting();
    options.bodyLimit = 1000;
    CurlHttpClient small(library, options);
    for (const qsizetype size : {1000, 1001}) {
        const QByteArray body(size, 'a');
        const QByteArray packed = gzipped(body);
        for (const QByteArray &bytes : {answer(200, body), "HTTP/1.1 200 Fine\r\n\r\n" + body,
                                        answer(200, packed, {{"Content-Encoding", "gzip"}})}) {
            LoopbackServer server(saying(bytes));
            if (size == options.bodyLimit) {
                EXPECT_EQ(small.send(request(server.url())).body, body);
            } else {
                EXPECT_EQ(failure(small, request(server.url())),
                          u"The answer of 127.0.0.1 is larger than 0 MiB."_s);
            }
        }
    }
}

TEST_F(HttpLimits, refuseHeadersWithoutEnd) {
    EXPECT_EQ(failureOf(saying("HTTP/1.1 200 Fine\r\n", repeating("Secret: secret\r\n"))),
              tooManyHeaders);
    EXPECT_EQ(failureOf(saying("", repeating("HTTP/1.1 100 Continue\r\n\r\n"))), tooManyHeaders);
    EXPECT_EQ(failureOf(saying("HTTP/1.1 200 Fine\r\nTransfer-Encoding: chunked\r\n\r\n0\r\n",
                               repeating("Secret: secret\r\n"))),
              tooManyHeaders);
}

TEST_F(HttpLimits, refuseAHeaderWithoutEnd) {
    EXPECT_EQ(failureOf(saying("HTTP/1.1 200 Fine\r\nSecret: ", repeating("secret "))),
              notUnderstood);
    EXPECT_EQ(failureOf(repeating("HTTP/1.1 ")), notUnderstood);
}

TEST_F(HttpLimits, letALongHeaderPass) {
    const QByteArray longValue(60'000, 'a');
    LoopbackServer server(answering(answer(200, {}, {{"Long", longValue}})));
    EXPECT_EQ(client.send(request(server.url())).header("Long"), longValue);
}

} // namespace

} // namespace zeph
