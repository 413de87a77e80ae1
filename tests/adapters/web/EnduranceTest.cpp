// SPDX-License-Identifier: MIT
#include "adapters/web/HttpFixture.h"
#include "support/LeastGrowth.h"
#include "support/WaitUntil.h"

#include <QDir>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

class HttpEndurance : public HttpFixture {
protected:
    /// Answers without keeping what was asked.
    static LoopbackServer::Handler forgetting(const QByteArray &bytes) {
        return [bytes](LoopbackConnection &connection) {
            while (connection.readRequest() && connection.write(bytes)) {
            }
        };
    }
    static qsizetype openFiles() {
        return QDir(u"/proc/self/fd"_s).entryList(QDir::NoDotAndDotDot | QDir::AllEntries).size();
    }
    /// Whether a round of `size` requests comes to add less than `bytes` for each.
    static void expectFlat(int size, int bytes, const std::function<void()> &work) {
        const auto round = [&] {
            for (int count = 0; count < size; ++count) {
                work();
            }
        };
        round(); // fills what stays
        const std::int64_t enough = std::int64_t{size} * bytes;
        EXPECT_LT(leastGrowth(enough, round), enough);
    }
};

TEST_F(HttpEndurance, holdsNothingOfFiveHundredAnswers) {
    LoopbackServer server(forgetting(answer(200, QByteArray(5000, 'a'), {{"A", "b"}})));
    const qsizetype files = openFiles();
    expectFlat(250, 16, [&] { client.send(request(server.url())); });
    EXPECT_TRUE(waitUntil([&] { return openFiles() <= files; }));
}

TEST_F(HttpEndurance, holdsNothingOfEncryptedAnswers) {
    LoopbackServer server(forgetting(answer(200, "fine")), authority.serverContext());
    // The allocator's shelves fill up over some thousand handshakes; all that belongs to a
    // connection is larger.
    expectFlat(60, 256, [&] { client.send(request(server.url())); });
}

TEST_F(HttpEndurance, holdsNothingOfFailures) {
    LoopbackServer circle(forgetting(redirect("/")));
    LoopbackServer cutting([](LoopbackConnection &connection) {
        connection.readRequest();
        connection.write("HTTP/1.1 200 Fine\r\nContent-Encoding: gzip\r\n\r\nno gzip");
    });
    expectFlat(30, 16, [&] {
        failure(request(circle.url(u"/"_s, {}, u"own.test"_s)));
        failure(request(cutting.url()));
        failure(request(QUrl(u"http://missing.test/"_s)));
    });
}

TEST_F(HttpEndurance, answersManyAtOnce) {
    LoopbackServer plain(forgetting(answer(200, "plain")));
    LoopbackServer secure(forgetting(answer(200, "secure")), authority.serverContext());
    std::atomic<int> answered = 0;
    std::vector<std::thread> threads;
    for (int index = 0; index < 16; ++index) {
        threads.emplace_back([&, index] {
            const LoopbackServer &server = index % 2 == 0 ? plain : secure;
            const QByteArray expected = index % 2 == 0 ? "plain" : "secure";
            for (int count = 0; count < 20; ++count) {
                answered += client.send(request(server.url())).body == expected ? 1 : 0;
            }
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    EXPECT_EQ(answered, 16 * 20);
}

} // namespace

} // namespace zeph
