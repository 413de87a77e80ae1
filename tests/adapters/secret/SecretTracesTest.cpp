// SPDX-License-Identifier: MIT
#include "adapters/secret/Elsewhere.h"
#include "adapters/secret/FakePrompter.h"
#include "adapters/secret/SecretServer.h"
#include "adapters/secret/SecretServiceStore.h"
#include "adapters/storage/JsonUserDefaults.h"
#include "base/NotificationCenter.h"
#include "services/accounts/IntegrationsStore.h"
#include "services/accounts/Keychain.h"
#include "services/accounts/RemoveForGood.h"
#include "support/ManualRunLoop.h"
#include "support/ManualTaskExecutor.h"
#include "support/PrintedLines.h"

#include <QDirIterator>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::IsEmpty;
using testing::SizeIs;

namespace zeph {

namespace {

const auto keySecret = u"sk_live_Zq83hfT0"_s;
const auto headerSecret = u"Bearer pX77wLm2"_s;

/// The files below `folder` that hold `bytes`, in plain or as the settings keep bytes.
QStringList filesWith(const QByteArray &bytes, const QString &folder) {
    QStringList found;
    QDirIterator files(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        if (!file.open(QFile::ReadOnly)) {
            continue;
        }
        const QByteArray content = file.readAll();
        bool holds = content.contains(bytes) || content.contains(bytes.toBase64()) ||
                     content.contains(bytes.toHex());
        // Base64 shifts by what stands before, so every encoded value is looked into.
        for (const QByteArray &word : content.split('"')) {
            holds = holds || QByteArray::fromBase64(word).contains(bytes);
        }
        if (holds) {
            found << file.fileName();
        }
    }
    return found;
}

class SecretTracesTest : public testing::Test {
protected:
    QString settingsPath() const { return server.home() + u"/config/Zeph/defaults.json"_s; }

    void expectNoTraces() {
        for (const auto &secret : {keySecret, headerSecret}) {
            EXPECT_THAT(filesWith(secret.toUtf8(), server.home()), IsEmpty());
        }
    }

    /// What a person does with accounts in a session of the program.
    void session(SecretServiceStore &secrets) {
        JsonUserDefaults defaults(settingsPath());
        Keychain keychain(secrets, defaults);
        NotificationCenter notifications;
        ManualClock clock;
        ManualRunLoop loop(clock);
        ManualTaskExecutor executor;
        IntegrationsStore store(defaults, keychain, notifications, loop, executor);
        const auto settle = [&] {
            elsewhere([&] { executor.runAll(); });
            loop.drain();
        };
        settle();
        const auto kept = store.addConnection(u"stripe"_s, std::nullopt, std::nullopt);
        const auto gone = store.addConnection(u"vercel"_s, u"Site"_s, std::nullopt);
        store.setSecret(keySecret, kept.id);
        store.setSecret(keySecret, gone.id);
        store.upsertCustomAPI({QUuid::createUuid(),
                               u"Mine"_s,
                               u"https://a.org"_s,
                               {{QUuid::createUuid(), u"Authorization"_s, headerSecret}},
                               {}});
        settle();
        removeForGood(store, gone.id);
        settle();
    }

    SecretServer server;
};

TEST_F(SecretTracesTest, theSearchFindsWhatIsThere) {
    QDir().mkpath(server.home() + u"/config/Zeph"_s);
    JsonUserDefaults defaults(settingsPath());
    defaults.set(u"x"_s, QByteArray("ab") + keySecret.toUtf8());
    EXPECT_THAT(filesWith(keySecret.toUtf8(), server.home()), SizeIs(1));
}

TEST_F(SecretTracesTest, secretsReachNoFileAndNoOutput) {
    server.start();
    const QStringList printed = printedLines([this] {
        SecretServiceStore secrets;
        session(secrets);
    });
    EXPECT_THAT(printed, IsEmpty());
    EXPECT_TRUE(QFile::exists(settingsPath()));
    expectNoTraces();

    JsonUserDefaults defaults(settingsPath());
    SecretServiceStore secrets;
    std::vector<SecureItem> items;
    elsewhere([&] { items = secrets.copyAll(u"com.tavi.integrations"_s).value; });
    EXPECT_THAT(items, SizeIs(2)) << "a key and the list of endpoints were kept";
    elsewhere([&] {
        Keychain keychain(secrets, defaults);
        EXPECT_TRUE(keychain.get(u"custom_apis"_s).value.value_or(u""_s).contains(headerSecret));
    });
}

TEST_F(SecretTracesTest, secretsThatCouldNotBeKeptReachNoFileEither) {
    const QStringList printed = printedLines([this] {
        SecretServiceStore secrets;
        session(secrets); // nobody is on the bus
    });
    EXPECT_THAT(printed, IsEmpty());
    expectNoTraces();
}

TEST_F(SecretTracesTest, secretsOfALockedCollectionReachNoFileEither) {
    server.start();
    {
        SecretServiceStore secrets;
        elsewhere([&] { secrets.add(u"s"_s, u"a"_s, "makes the collection"); });
    }
    server.kill();
    server.startLocked();
    const FakePrompter prompter(server.bus(), FakePrompter::Person::refuses);
    SecretServiceStore secrets;
    session(secrets);
    EXPECT_GT(prompter.shown(), 0);
    expectNoTraces();
}

} // namespace

} // namespace zeph
