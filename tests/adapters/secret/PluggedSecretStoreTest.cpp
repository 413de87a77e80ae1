// SPDX-License-Identifier: MIT
#include "adapters/secret/PluggedSecretStore.h"

#include "adapters/secret/Elsewhere.h"
#include "adapters/secret/SecretServer.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

const QString service = u"com.example.plugged"_s;

bool isLoaded(const QString &file) {
    QFile maps(u"/proc/self/maps"_s);
    return maps.open(QIODevice::ReadOnly) && maps.readAll().contains(QFile::encodeName(file));
}

void expectNothing(SecureStore &store) {
    EXPECT_EQ(store.add(service, u"a"_s, "secret"), SecretOutcome::unavailable);
    EXPECT_EQ(store.copy(service, u"a"_s).outcome, SecretOutcome::unavailable);
    EXPECT_EQ(store.copyAll(service).outcome, SecretOutcome::unavailable);
    EXPECT_EQ(store.remove(service, u"a"_s), SecretOutcome::unavailable);
}

TEST(PluggedSecretStore, isLoadedByTheFirstSecretAndKeepsThemInTheKeyring) {
    // The process keeps what it has loaded, from other tests too.
    const QTemporaryDir folder;
    const QString copy = folder.filePath(u"zeph-secret.so"_s);
    ASSERT_TRUE(QFile::copy(QStringLiteral(ZEPH_SECRET_PLUGIN), copy));
    SecretServer server;
    server.start();
    PluggedSecretStore store(copy);
    EXPECT_FALSE(isLoaded(copy));
    elsewhere([&] {
        EXPECT_EQ(store.add(service, u"a"_s, "one"), SecretOutcome::done);
        EXPECT_TRUE(isLoaded(copy));
        EXPECT_EQ(store.copy(service, u"a"_s).value, QByteArray("one"));
        EXPECT_EQ(store.copyAll(service).value.size(), 1U);
        EXPECT_EQ(store.remove(service, u"a"_s), SecretOutcome::done);
        EXPECT_EQ(store.copyAll(service).value.size(), 0U);
        store.cancelAll();
        expectNothing(store);
    });
}

TEST(PluggedSecretStore, isNotLoadedOnceEverythingIsCancelled) {
    const QTemporaryDir folder;
    const QString copy = folder.filePath(u"zeph-secret.so"_s);
    ASSERT_TRUE(QFile::copy(QStringLiteral(ZEPH_SECRET_PLUGIN), copy));
    PluggedSecretStore store(copy);
    store.cancelAll();
    expectNothing(store);
    EXPECT_FALSE(isLoaded(copy));
}

TEST(PluggedSecretStore, asksAgainThroughThePlugin) {
    const QTemporaryDir folder;
    const QString copy = folder.filePath(u"zeph-secret.so"_s);
    ASSERT_TRUE(QFile::copy(QStringLiteral(ZEPH_SECRET_PLUGIN), copy));
    PluggedSecretStore store(copy);
    elsewhere([&] { store.askAgain(); });
    EXPECT_TRUE(isLoaded(copy));
    store.cancelAll();
    elsewhere([&] { store.askAgain(); });
}

TEST(PluggedSecretStore, hasNothingWithoutThePlugin) {
    PluggedSecretStore missing(u"/nonexistent/zeph-secret.so"_s);
    expectNothing(missing);
}

TEST(PluggedSecretStore, hasNothingOfALibraryThatIsNoPlugin) {
    PluggedSecretStore other(u"libm.so.6"_s);
    expectNothing(other);
}

TEST(PluggedSecretStore, takesThePluginOfTheInstallationUnlessOneIsBesideTheProgram) {
    const QString path = PluggedSecretStore::installedPlugin();
    EXPECT_TRUE(QDir::cleanPath(path).endsWith(u"/zeph-secret.so"_s));
    EXPECT_TRUE(path.contains(u"/tavi/"_s));
}

} // namespace

} // namespace zeph
