// SPDX-License-Identifier: MIT
#include "integrations/accounts/AccountSecrets.h"

#include "integrations/accounts/AccountKeys.h"
#include "integrations/accounts/Keychain.h"
#include "integrations/accounts/LegacyAccounts.h"
#include "platform/RunLoop.h"
#include "platform/UserDefaults.h"

#include <algorithm>
#include <utility>

namespace zeph {

AccountSecrets::AccountSecrets(UserDefaults &defaults, Keychain &keychain, RunLoop &runLoop,
                               TaskExecutor &executor)
    : m_defaults(defaults),
      m_keychain(keychain),
      m_runLoop(runLoop),
      m_tasks(executor),
      m_pending(std::make_shared<PendingSecrets>(defaults)),
      m_alive(std::make_shared<bool>(true)) {}

void AccountSecrets::keep(const QString &secret, const QUuid &id, std::function<void()> done) {
    run(
        [&keychain = m_keychain, &defaults = m_defaults, secret, id] {
            keychain.set(secret, secretAccount(id));
            defaults.set(configuredKey(id), true);
        },
        std::move(done));
}

void AccountSecrets::clear(const QUuid &id) {
    erase(id);
    // Once more in its turn, as a secret that was given before it sets the mark in its own.
    m_tasks.run([&defaults = m_defaults, id] { defaults.set(configuredKey(id), false); });
}

void AccountSecrets::erase(const QUuid &id) {
    m_pending->addErasure(id);
    m_tasks.run([&keychain = m_keychain, pending = m_pending, id] {
        keychain.erase(secretAccount(id));
        pending->erased(id);
    });
}

void AccountSecrets::noteMoves(const std::vector<LegacyAccount> &accounts) {
    for (const LegacyAccount &account : accounts) {
        if (account.hasSecret) {
            m_pending->add({account.connection.provider, account.connection.id});
        }
    }
}

void AccountSecrets::resume(const std::vector<IntegrationConnection> &connections,
                            std::function<void()> done) {
    const std::vector<QUuid> erasures = m_pending->erasures();
    const std::vector<SecretMove> moves = takeMoves(connections, erasures);
    if (!moves.empty()) {
        run(
            [&keychain = m_keychain, &defaults = m_defaults, pending = m_pending, moves] {
                for (const SecretMove &move : moves) {
                    moveLegacySecret(move, keychain, defaults);
                    pending->done(move);
                }
            },
            std::move(done));
    }
    for (const QUuid &id : erasures) {
        erase(id);
    }
}

/// A secret of an account that was removed meanwhile is moved as well, and then erased.
std::vector<SecretMove>
AccountSecrets::takeMoves(const std::vector<IntegrationConnection> &connections,
                          const std::vector<QUuid> &erasures) {
    std::vector<SecretMove> moves;
    for (const SecretMove &move : m_pending->moves()) {
        const bool isKept =
            std::any_of(connections.begin(), connections.end(),
                        [&move](const auto &connection) { return connection.id == move.id; });
        const bool isRemoved =
            std::find(erasures.begin(), erasures.end(), move.id) != erasures.end();
        if (isKept || isRemoved) {
            moves.push_back(move);
        } else {
            m_pending->done(move);
        }
    }
    return moves;
}

void AccountSecrets::run(std::function<void()> work, std::function<void()> onMain) {
    m_tasks.run([work = std::move(work), onMain = std::move(onMain), &runLoop = m_runLoop,
                 alive = std::weak_ptr<bool>(m_alive)] {
        work();
        runLoop.post([onMain, alive] {
            if (!alive.expired()) {
                onMain();
            }
        });
    });
}

} // namespace zeph
