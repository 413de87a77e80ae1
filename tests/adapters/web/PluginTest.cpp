// SPDX-License-Identifier: MIT
#include "adapters/web/HttpFixture.h"
#include "adapters/web/PluggedHttpClient.h"
#include "support/WaitUntil.h"

#include <QDir>
#include <QFile>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

class HttpPlugin : public HttpFixture {
protected:
    HttpPlugin() : server(answering(answer(200, "plugged")), authority.serverContext()) {}

    static bool isLoaded(const QString &file) {
        QFile maps(u"/proc/self/maps"_s);
        return maps.open(QIODevice::ReadOnly) && maps.readAll().contains(QFile::encodeName(file));
    }

    const QString path = QStringLiteral(ZEPH_HTTP_PLUGIN);
    LoopbackServer server;
};

TEST_F(HttpPlugin, isLoadedByTheFirstRequestThatIsNotRefused) {
    // The process keeps what it has loaded, from other tests too.
    const QTemporaryDir folder;
    const QString copy = folder.filePath(u"zeph-http.so"_s);
    ASSERT_TRUE(QFile::copy(path, copy));
    PluggedHttpClient refusing(trusting(), copy);
    refusing.cancelAll();
    EXPECT_EQ(failure(refusing, request(server.url())), u"The request was cancelled."_s);
    PluggedHttpClient plugged(trusting(), copy);
    EXPECT_FALSE(isLoaded(copy));
    EXPECT_EQ(plugged.send(request(server.url())).body, "plugged");
    EXPECT_TRUE(isLoaded(copy));
    EXPECT_EQ(failure(plugged, request(QUrl(u"http://missing.test/"_s))),
              u"The host missing.test could not be found."_s);
    plugged.cancelAll();
    EXPECT_EQ(failure(plugged, request(server.url())),
              u"The request to 127.0.0.1 was cancelled."_s);
    EXPECT_EQ(received().size(), 1U);
}

TEST_F(HttpPlugin, saysWhichProgramAsks) {
    LoopbackServer plain(answering(answer(200)));
    PluggedHttpClient plugged(PluggedHttpClient::programOptions(), path);
    plugged.send(request(plain.url()));
    EXPECT_THAT(received().back().header("User-Agent")->toStdString(),
                testing::MatchesRegex("Tavi/[0-9]+[.][0-9]+[.][0-9]+"));
}

TEST_F(HttpPlugin, endsWhatIsUnderWay) {
    std::atomic<bool> arrived = false;
    LoopbackServer silent([&](LoopbackConnection &connection) {
        connection.readRequest();
        arrived = true;
        connection.waitForEnd();
    });
    PluggedHttpClient plugged(trusting(), path);
    QString said;
    std::thread asking([&] { said = failure(plugged, request(silent.url())); });
    EXPECT_TRUE(waitUntil([&] { return arrived.load(); }));
    plugged.cancelAll();
    asking.join();
    EXPECT_EQ(said, u"The request to 127.0.0.1 was cancelled."_s);
}

TEST_F(HttpPlugin, mayBeMissing) {
    PluggedHttpClient plugged(trusting(), u"/nonexistent/zeph-http.so"_s);
    EXPECT_EQ(failure(plugged, request(server.url())),
              u"The network library could not be loaded."_s);
}

TEST_F(HttpPlugin, liesInTheInstallationUnlessBesideTheProgram) {
    EXPECT_TRUE(QDir::cleanPath(PluggedHttpClient::installedPlugin()).endsWith(u"/zeph-http.so"_s));
    EXPECT_TRUE(PluggedHttpClient::installedPlugin().contains(u"/tavi/"_s));
}

TEST_F(HttpPlugin, keepsItsKeysToItself) {
    const ScopedVariable wish("SSLKEYLOGFILE", QByteArray("/nonexistent/keys"));
    const PluggedHttpClient plugged(trusting(), path);
    EXPECT_FALSE(qEnvironmentVariableIsSet("SSLKEYLOGFILE"));
}

} // namespace

} // namespace zeph
