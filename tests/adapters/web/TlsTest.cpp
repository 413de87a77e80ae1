// SPDX-License-Identifier: MIT
#include "adapters/web/Http2Conversation.h"
#include "adapters/web/HttpFixture.h"

#include <QDir>

#include <openssl/ssl.h>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

using Hours = std::chrono::hours;

/// From the start of the process a machine that takes any version of TLS, so that it is the client
/// that refuses one. OpenSSL reads its settings once.
const bool takesAnyTls = qputenv("OPENSSL_CONF", ZEPH_ANY_TLS);

class HttpTrust : public HttpFixture {
protected:
    QString failureOf(const CertificateWish &wish) {
        LoopbackServer server(answering(answer(200)), authority.serverContext(wish));
        const QString said = failure(request(server.url(u"/secret"_s)));
        EXPECT_TRUE(received().empty()); // not a word before the check
        return said;
    }
};

TEST_F(HttpTrust, isGivenToWhomTheAuthorityKnows) {
    LoopbackServer server(answering(answer(200, "safe")), authority.serverContext());
    for (const QString &host : {u"127.0.0.1"_s, u"localhost"_s, u"own.test"_s}) {
        EXPECT_EQ(client.send(request(server.url(u"/"_s, {}, host))).body, "safe");
        EXPECT_EQ(received().back().header("Authorization"), "Bearer secret");
    }
}

TEST_F(HttpTrust, endsWithTheCertificate) {
    EXPECT_EQ(failureOf({.validFrom = Hours(-48), .validUntil = Hours(-24)}),
              u"The certificate of 127.0.0.1 has expired."_s);
}

TEST_F(HttpTrust, doesNotBeginBeforeTheCertificate) {
    EXPECT_EQ(failureOf({.validFrom = Hours(24), .validUntil = Hours(48)}),
              u"The certificate of 127.0.0.1 is not valid yet."_s);
}

TEST_F(HttpTrust, isForOneHostAlone) {
    EXPECT_EQ(failureOf({.names = "DNS:elsewhere.test"}),
              u"The certificate of 127.0.0.1 is for another host."_s);
    EXPECT_EQ(failureOf({.names = "DNS:127.0.0.1.elsewhere.test,IP:127.0.0.2"}),
              u"The certificate of 127.0.0.1 is for another host."_s);
}

TEST_F(HttpTrust, isRefusedToUnknownAuthorities) {
    const TestAuthority stranger("Stranger");
    LoopbackServer server(answering(answer(200)), stranger.serverContext());
    EXPECT_EQ(failure(request(server.url())), u"The certificate of 127.0.0.1 is not trusted."_s);
    EXPECT_TRUE(received().empty());
}

TEST_F(HttpTrust, isRefusedToWhoTakesTheAuthoritysName) {
    const TestAuthority impostor;
    LoopbackServer server(answering(answer(200)), impostor.serverContext());
    EXPECT_EQ(failure(request(server.url())),
              u"No secure connection to 127.0.0.1 could be made."_s);
    EXPECT_TRUE(received().empty());
}

TEST_F(HttpTrust, isNotGivenToWhoSpeaksNothingNewerThanTls11) {
    const std::unique_ptr<SSL_CTX, void (*)(SSL_CTX *)> usual(SSL_CTX_new(TLS_client_method()),
                                                              &SSL_CTX_free);
    ASSERT_TRUE(takesAnyTls && SSL_CTX_get_min_proto_version(usual.get()) == TLS1_VERSION);
    const auto context = authority.serverContext();
    ASSERT_EQ(SSL_CTX_set_max_proto_version(context.get(), TLS1_1_VERSION), 1);
    LoopbackServer old(answering(answer(200)), context);
    EXPECT_EQ(failure(request(old.url())), u"No secure connection to 127.0.0.1 could be made."_s);
    EXPECT_TRUE(received().empty());
    ASSERT_EQ(SSL_CTX_set_max_proto_version(context.get(), TLS1_2_VERSION), 1);
    LoopbackServer newer(answering(answer(200, "safe")), context);
    EXPECT_EQ(client.send(request(newer.url())).body, "safe");
}

TEST_F(HttpTrust, isTheSystemsUnlessToldOtherwise) {
    const ScopedVariable file("SSL_CERT_FILE", authority.file().toLocal8Bit());
    const ScopedVariable folder("SSL_CERT_DIR", QFileInfo(authority.file()).path().toLocal8Bit());
    CurlHttpClient usual(library);
    LoopbackServer server(answering(answer(200)), authority.serverContext());
    EXPECT_EQ(failure(usual, request(server.url())),
              u"The certificate of 127.0.0.1 is not trusted."_s);
    EXPECT_TRUE(received().empty());
}

TEST_F(HttpTrust, isRefusedWithoutTheAuthoritiesFile) {
    HttpOptions options;
    options.authoritiesFile = u"/nonexistent"_s;
    CurlHttpClient blind(library, options);
    LoopbackServer server(answering(answer(200)), authority.serverContext());
    EXPECT_EQ(failure(blind, request(server.url())), u"The request to 127.0.0.1 failed."_s);
}

TEST_F(HttpTrust, isRefusedToOldProtocols) {
    const auto context = authority.serverContext();
    SSL_CTX_set_security_level(context.get(), 0);
    SSL_CTX_set_min_proto_version(context.get(), TLS1_VERSION);
    SSL_CTX_set_max_proto_version(context.get(), TLS1_1_VERSION);
    LoopbackServer server(answering(answer(200)), context);
    EXPECT_EQ(failure(request(server.url())),
              u"No secure connection to 127.0.0.1 could be made."_s);
}

TEST_F(HttpTrust, isRefusedToWhoSpeaksPlainly) {
    LoopbackServer server([](LoopbackConnection &connection) {
        connection.read();
        connection.write(answer(400));
    });
    EXPECT_EQ(failure(request(server.url(u"/secret"_s, u"https"_s))),
              u"No secure connection to 127.0.0.1 could be made."_s);
}

TEST_F(HttpTrust, isRefusedToWhoHangsUp) {
    LoopbackServer server([](LoopbackConnection &connection) {
        connection.read();
        connection.reset();
    });
    EXPECT_EQ(failure(request(server.url(u"/secret"_s, u"https"_s))),
              u"No secure connection to 127.0.0.1 could be made."_s);
}

TEST_F(HttpTrust, survivesAnUploadThatIsCutOff) {
    LoopbackServer server(
        [](LoopbackConnection &connection) {
            connection.read();
            connection.reset();
        },
        authority.serverContext());
    HttpRequest upload = request(server.url());
    upload.method = "POST";
    upload.body = QByteArray(8 * 1024 * 1024, 'a');
    EXPECT_EQ(failure(upload), u"127.0.0.1 ended the connection too early."_s);
}

TEST_F(HttpTrust, keepsItsKeysToItself) {
    QTemporaryDir folder;
    const QString file = folder.filePath(u"keys"_s);
    const ScopedVariable wish("SSLKEYLOGFILE", file.toLocal8Bit());
    const CurlLibrary anew;
    CurlHttpClient discreet(anew, trusting());
    LoopbackServer server(answering(answer(200)), authority.serverContext());
    EXPECT_EQ(discreet.send(request(server.url())).status, 200);
    EXPECT_FALSE(QFile::exists(file));
}

TEST_F(HttpTrust, speaksHttp2WhereItIsOffered) {
    std::vector<ReceivedRequest> received;
    QByteArray protocol;
    LoopbackServer server(
        [&](LoopbackConnection &connection) {
            protocol = connection.protocol();
            converseInHttp2(connection, [&](const ReceivedRequest &request) {
                received.push_back(request);
                if (received.size() == 1) {
                    return HttpResponse{302, {{"location", "/next"}}, "not this"};
                }
                return HttpResponse{404, {{"x-said", "two"}}, QByteArray(100'000, 'a')};
            });
        },
        authority.serverContext({}, "\x02h2"));
    const HttpResponse response = client.send(request(server.url()));
    EXPECT_EQ(protocol, "h2");
    EXPECT_EQ(response.status, 404);
    EXPECT_EQ(response.header("X-Said"), "two");
    EXPECT_EQ(response.body, QByteArray(100'000, 'a'));
    ASSERT_EQ(received.size(), 2U);
    EXPECT_EQ(received[1].method, "GET");
    EXPECT_EQ(received[1].target, "/next");
    EXPECT_EQ(received[1].header("authorization"), "Bearer secret");
    EXPECT_EQ(server.connections(), 1); // the way on within an origin is the same connection
}

TEST_F(HttpTrust, limitsHttp2AsWell) {
    LoopbackServer server(
        [&](LoopbackConnection &connection) {
            converseInHttp2(connection, [](const ReceivedRequest & /*received*/) {
                return HttpResponse{200, {}, QByteArray(17 * 1024 * 1024, 'a')};
            });
        },
        authority.serverContext({}, "\x02h2"));
    EXPECT_EQ(failure(request(server.url())), u"The answer of 127.0.0.1 is larger than 16 MiB."_s);
}

} // namespace

} // namespace zeph
