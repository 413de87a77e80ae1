// SPDX-License-Identifier: MIT
#include "TwentyAccounts.h"
#include "adapters/secret/SecretServiceStore.h"
#include "e2e/ContractServer.h"
#include "services/accounts/AccountCoding.h"
#include "services/accounts/AccountKeys.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonObject>

#include <unistd.h>

#include <cstdio>

using namespace Qt::StringLiterals;

/// Serves all web services on loopback until its standard input ends. Puts the keys of twenty
/// accounts into the keyring of the session, and prints where the services are and which settings
/// name the accounts, as one JSON object; and at the end how many requests
/// came.
int main(int argumentCount, char **arguments) {
    const QCoreApplication toolkit(argumentCount, arguments);
    const zeph::ContractServer server;
    zeph::SecretServiceStore keyring;
    QJsonObject settings{{u"zeph.integrations.v2"_s, true}};
    const auto accounts = zeph::twentyAccounts(server.root());
    for (const zeph::IntegrationConnection &account : accounts) {
        settings[zeph::configuredKey(account.id)] = true;
        if (keyring.add(u"com.tavi.integrations"_s, zeph::secretAccount(account.id), "key") !=
            zeph::SecretOutcome::done) {
            std::fputs("there is no keyring\n", stderr);
            return 1;
        }
    }
    settings[u"zeph.integrations.connections"_s] =
        QJsonObject{{u"data"_s, QString::fromLatin1(zeph::coding::json(accounts).toBase64())}};
    const QJsonObject told{{u"root"_s, server.root()}, {u"settings"_s, settings}};
    std::puts(QJsonDocument(told).toJson(QJsonDocument::Compact).constData());
    std::fflush(stdout);
    char byte = 0;
    while (::read(STDIN_FILENO, &byte, 1) > 0) {
    }
    std::printf("%d\n", server.requestCount());
    return 0;
}
