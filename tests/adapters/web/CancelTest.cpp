// SPDX-License-Identifier: MIT
#include "adapters/web/FullBacklog.h"
#include "adapters/web/Http2Conversation.h"
#include "adapters/web/HttpFixture.h"
#include "adapters/web/ScriptedNames.h"
#include "support/WaitUntil.h"

#include <QElapsedTimer>

#include <algorithm>
#include <deque>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

constexpr int requests = 20;

/// Requests on threads of their own, none of which ends by itself.
class ManyRequests {
public:
    ManyRequests(HttpClient &client, const HttpRequest &request) {
        for (int index = 0; index < requests; ++index) {
            m_threads.emplace_back([this, &client, request] { run(client, request); });
        }
    }
    ~ManyRequests() { join(); }

    void join() {
        for (std::thread &thread : m_threads) {
            if (thread.joinable()) {
                thread.join();
            }
        }
    }
    int cancelled() const { return m_cancelled; }
    int ended() const { return m_ended; }

private:
    void run(HttpClient &client, const HttpRequest &request) {
        try {
            client.send(request);
        } catch (const TransportError &error) {
            m_cancelled += error.description().endsWith(u" was cancelled."_s) ? 1 : 0;
        }
        ++m_ended;
    }

    std::atomic<int> m_cancelled = 0;
    std::atomic<int> m_ended = 0;
    std::deque<std::thread> m_threads;
};

class HttpCancellation : public HttpFixture {
protected:
    /// Cancels as soon as every request has got as far as `reached` tells. The shortest of some
    /// tries counts, because a loaded machine may hold any of them up.
    void endsAll(const HttpRequest &request, const std::function<int()> &reached) {
        qint64 shortest = std::numeric_limits<qint64>::max();
        for (int attempt = 0; attempt < 5 && shortest > 500; ++attempt) {
            const int before = reached();
            CurlHttpClient asked(library, trusting());
            ManyRequests many(asked, request);
            EXPECT_TRUE(waitUntil([&] { return reached() - before == requests; }))
                << reached() - before;
            EXPECT_EQ(many.ended(), 0);
            QElapsedTimer elapsed;
            elapsed.start();
            asked.cancelAll();
            many.join();
            shortest = std::min(shortest, elapsed.elapsed());
            EXPECT_EQ(many.cancelled(), requests);
            expectRefusal(asked, request);
            afterwards();
        }
        EXPECT_LE(shortest, 500);
    }
    void endsAll(const LoopbackServer &server) {
        endsAll(request(server.url()), [this] { return arrived.load(); });
    }
    void expectRefusal(HttpClient &asked, const HttpRequest &request) const {
        const int before = arrived;
        EXPECT_EQ(failure(asked, request),
                  u"The request to %1 was cancelled."_s.arg(request.url.host()));
        EXPECT_EQ(arrived, before);
    }
    /// Does something with a request and then nothing more.
    LoopbackServer::Handler afterRequest(const QByteArray &bytes) {
        return [this, bytes](LoopbackConnection &connection) {
            if (connection.readRequest() && connection.write(bytes)) {
                ++arrived;
                connection.waitForEnd();
            }
        };
    }

    std::atomic<int> arrived = 0;
    std::function<void()> afterwards = [] {};
};

TEST_F(HttpCancellation, endsLookUps) {
    afterwards = &ScriptedNames::release;
    endsAll(request(QUrl(u"http://stuck.test/secret"_s)), &ScriptedNames::stuck);
}

TEST_F(HttpCancellation, endsConnecting) {
    const FullBacklog backlog;
    endsAll(request(backlog.url()), [&] { return backlog.hanging(); });
}

TEST_F(HttpCancellation, endsHandshakes) {
    LoopbackServer server([this](LoopbackConnection &connection) {
        connection.read();
        ++arrived;
        connection.waitForEnd();
    });
    endsAll(request(server.url(u"/secret"_s, u"https"_s)), [this] { return arrived.load(); });
}

TEST_F(HttpCancellation, endsUploads) {
    LoopbackServer server([this](LoopbackConnection &connection) {
        connection.read();
        ++arrived;
        connection.waitForAbsence();
    });
    HttpRequest upload = request(server.url());
    upload.method = "POST";
    upload.body = QByteArray(32 * 1024 * 1024, 'a');
    endsAll(upload, [this] { return arrived.load(); });
}

TEST_F(HttpCancellation, endsWaitingForTheAnswer) {
    const LoopbackServer server(afterRequest(""));
    endsAll(server);
}

TEST_F(HttpCancellation, endsWaitingForAnEncryptedAnswer) {
    const LoopbackServer server(afterRequest(""), authority.serverContext());
    endsAll(server);
}

TEST_F(HttpCancellation, endsWaitingForTheRestOfTheHeaders) {
    const LoopbackServer server(afterRequest("HTTP/1.1 200 Fine\r\nA: b\r\nC"));
    endsAll(server);
}

TEST_F(HttpCancellation, endsWaitingForTheRestOfTheBody) {
    const LoopbackServer server(
        afterRequest("HTTP/1.1 200 Fine\r\nContent-Length: 100\r\n\r\nabc"));
    endsAll(server);
}

TEST_F(HttpCancellation, endsATrickle) {
    const LoopbackServer server([this](LoopbackConnection &connection) {
        connection.readRequest();
        ++arrived;
        connection.write("HTTP/1.1 200 Fine\r\n\r\n");
        connection.writeSlowly(QByteArray(100'000, 'a'), std::chrono::milliseconds(1));
    });
    endsAll(server);
}

TEST_F(HttpCancellation, endsAfterARedirect) {
    const LoopbackServer silent(afterRequest(""));
    const LoopbackServer server(answering(redirect(silent.url().toEncoded())));
    endsAll(server);
}

TEST_F(HttpCancellation, endsHttp2) {
    const LoopbackServer server(
        [this](LoopbackConnection &connection) {
            converseInHttp2(connection, [&](const ReceivedRequest & /*received*/) {
                ++arrived;
                connection.waitForEnd();
                return HttpResponse{200};
            });
        },
        authority.serverContext({}, "\x02h2"));
    endsAll(server);
}

TEST_F(HttpCancellation, holdsForGood) {
    LoopbackServer server(answering(answer(200)));
    EXPECT_EQ(client.send(request(server.url())).status, 200);
    client.cancelAll();
    client.cancelAll();
    for (int count = 0; count < 3; ++count) {
        EXPECT_EQ(failure(request(server.url())), u"The request to 127.0.0.1 was cancelled."_s);
    }
    EXPECT_EQ(received().size(), 1U);
}

TEST_F(HttpCancellation, isOfOneClientAlone) {
    LoopbackServer server(answering(answer(200)));
    CurlHttpClient other(library, trusting());
    client.cancelAll();
    EXPECT_EQ(other.send(request(server.url())).status, 200);
}

} // namespace

} // namespace zeph
