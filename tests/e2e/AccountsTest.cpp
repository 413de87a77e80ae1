// SPDX-License-Identifier: MIT
#include "ContractServer.h"
#include "TaviFixture.h"

#include "adapters/places/FakeGeoClue.h"
#include "adapters/secret/SecretServer.h"
#include "adapters/secret/SecretServiceStore.h"
#include "services/accounts/AccountCoding.h"
#include "services/accounts/AccountKeys.h"
#include "services/accounts/CustomAPIConfig.h"
#include "services/accounts/IntegrationConnection.h"

#include <QDirIterator>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const QString keychainService = u"com.tavi.integrations"_s;
const QByteArray keyMark = "sk_e2e_5f0c";

QJsonObject bytes(const QByteArray &data) {
    return {{u"data"_s, QString::fromLatin1(data.toBase64())}};
}

} // namespace

/// The program with an account of every kind, on a screen that has room for all of them.
class AccountsTest : public TaviTest {
protected:
    AccountsTest() : TaviTest({.screen = "2560x1440x24"}) {}

    void SetUp() override {
        secrets.start();
        addAccounts();
        addCustomEndpoint();
        write();
        geoclue.atStart = {{u"Latitude"_s, 40.0}, {u"Longitude"_s, 10.0}, {u"Accuracy"_s, 5000.0}};
        geoclue.appear();
    }

    QProcessEnvironment accountsEnvironment() const {
        QProcessEnvironment variables = environment();
        variables.insert(u"DBUS_SESSION_BUS_ADDRESS"_s,
                         qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"));
        variables.insert(u"DBUS_SYSTEM_BUS_ADDRESS"_s, systemBus.address());
        variables.insert(u"no_proxy"_s, u"127.0.0.1"_s);
        return variables;
    }

    /// The words of `expected` that the screen does not come to show.
    QStringList missing(QStringList expected) {
        waitUntil(
            [&] {
                lastWords = readWords(screenshot());
                expected.erase(
                    std::remove_if(expected.begin(), expected.end(),
                                   [&](const QString &words) { return lastWords.contains(words); }),
                    expected.end());
                return expected.isEmpty();
            },
            std::chrono::seconds(60));
        return expected;
    }

    /// True once none of `words` can be read any more.
    bool haveVanished(const QStringList &words) {
        return waitUntil(
            [&] {
                lastWords = readWords(screenshot());
                return std::none_of(words.begin(), words.end(),
                                    [&](const QString &one) { return lastWords.contains(one); });
            },
            std::chrono::seconds(60));
    }

    /// The files below the home folder that hold a part of a key.
    QStringList filesWithKeys() const {
        QStringList found;
        QDirIterator files(home.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            if (file.open(QIODevice::ReadOnly) && file.readAll().contains(keyMark)) {
                found << file.fileName();
            }
        }
        return found;
    }

    ContractServer web;

private:
    void addAccounts() {
        for (const char *provider : {"stripe", "chartmogul", "lemonsqueezy", "dodo", "vercel",
                                     "netlify", "gumroad", "polar"}) {
            addAccount(provider, {}, true);
        }
        addAccount("github", u"mira"_s, true);
        addAccount("plausible", u"example.org"_s, true);
        addAccount("trustmrr", u"quiet"_s, true);
        addAccount("ahrefs", u"example.org"_s, false);
        addAccount("coingecko", u"bitcoin"_s, false);
        addAccount("hackernews", u"mira"_s, false);
        addAccount("reddit", u"mira"_s, false);
        addAccount("producthunt", u"mira"_s, false);
        addAccount("bluesky", u"mira.bsky.social"_s, false);
        addAccount("currency", u"USD/INR"_s, false);
        addAccount("rss", web.root() + u"/feed/blog.atom"_s, false);
    }

    void addAccount(const char *provider, const std::optional<QString> &extra, bool hasKey) {
        IntegrationConnection account;
        account.id = QUuid::createUuid();
        account.provider = QLatin1String(provider);
        account.name = QLatin1String(provider);
        account.extra = extra;
        account.showContributionGraph = true;
        connections.push_back(account);
        settings[configuredKey(account.id)] = true;
        if (hasKey) {
            keychain.add(keychainService, secretAccount(account.id), keyMark + provider);
        }
    }

    void addCustomEndpoint() {
        CustomAPIConfig config;
        config.id = QUuid::createUuid();
        config.name = u"Status"_s;
        config.urlString = web.root() + u"/custom/status"_s;
        config.headers = {
            {QUuid::createUuid(), u"X-Key"_s, QString::fromLatin1(keyMark) + u"custom"_s}};
        config.fields = {{QUuid::createUuid(), u"Signups"_s, u"signups.today"_s}};
        keychain.add(keychainService, u"custom_apis"_s, coding::json(std::vector{config}));
        settings[u"zeph.integrations.custom.exists"_s] = true;
    }

    void write() {
        settings[u"zeph.integrations.connections"_s] = bytes(coding::json(connections));
        settings[u"zeph.integrations.v2"_s] = true;
        settings[u"zeph.consent.location"_s] = 3;
        writeSettings(QJsonDocument(settings).toJson());
    }

    SecretServer secrets;
    SecretServiceStore keychain;
    PrivateBus systemBus;
    FakeGeoClue geoclue{systemBus.address()};
    std::vector<IntegrationConnection> connections;
    QJsonObject settings;
};

TEST_F(AccountsTest, ofEveryKindAppearVanishWithoutAWordAndComeBack) {
    startWindowManager();
    Program tavi(accountsEnvironment(), {web.root()}, QStringLiteral(ZEPH_LOOPBACK));
    ASSERT_TRUE(waitForWallpaper());
    const QStringList accounts{u"earned today"_s,  u"MRR"_s,         u"GITHUB"_s,
                               u"contributions"_s, u"Hacker News"_s, u"Reddit"_s,
                               u"Product Hunt"_s,  u"Bluesky"_s,     u"Gumroad"_s,
                               u"Polar"_s,         u"Bitcoin"_s,     u"Domain Rating"_s,
                               u"Signups: 42"_s};
    // Rates are kept for an hour, so theirs is the card that stays.
    const QStringList lasting{u"Exchange rate"_s, u"rain"_s};
    EXPECT_EQ(missing(accounts + lasting), QStringList()) << lastWords.toStdString();

    web.setFailing(true);
    EXPECT_TRUE(haveVanished(accounts)) << lastWords.toStdString();
    EXPECT_FALSE(lastWords.contains(u"503"_s)) << lastWords.toStdString();
    EXPECT_EQ(missing(lasting), QStringList()) << "the weather stays through an outage";

    web.setFailing(false);
    EXPECT_EQ(missing(accounts), QStringList()) << lastWords.toStdString();

    EXPECT_TRUE(web.sawHeaderText(keyMark)) << "keys go where they belong";
    EXPECT_EQ(filesWithKeys(), QStringList());
    EXPECT_FALSE((tavi.output() + tavi.errors()).contains(QString::fromLatin1(keyMark)));
    QFile commandLine(u"/proc/%1/cmdline"_s.arg(tavi.process()));
    ASSERT_TRUE(commandLine.open(QIODevice::ReadOnly));
    EXPECT_FALSE(commandLine.readAll().contains(keyMark));

    tavi.send(SIGTERM);
    EXPECT_TRUE(tavi.endsWith(0));
}

} // namespace zeph
