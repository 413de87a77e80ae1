// SPDX-License-Identifier: MIT
#include "services/accounts/AccountSecrets.h"

#include "ports/UserDefaults.h"
#include "services/accounts/AccountKeys.h"
#include "services/accounts/Keychain.h"

#include <algorithm>
#include <utility>

namespace zeph {

/// A secret that lies under the bare name of its service and belongs to an account.
struct AccountSecrets::Move {
    QString provider;
    QUuid id;
    int decision;
    SecretOutcome outcome = SecretOutcome::unavailable;
    bool hasSecret = false; ///< the account has it by now

    /// Ends the same when it was cut off anywhere and is run again. A secret that the account
    /// has already is the newer one.
    void run(Keychain &keychain) {
        const auto legacy = keychain.get(provider);
        const auto own = legacy.isDone() ? keychain.get(secretAccount(id)) : legacy;
        outcome = own.outcome;
        hasSecret = own.isDone() && own.value;
        if (!own.isDone() || !legacy.value) {
            return;
        }
        if (!hasSecret) {
            outcome = keychain.set(legacy.value, secretAccount(id));
            hasSecret = outcome == SecretOutcome::done;
        }
        if (hasSecret) {
            outcome = keychain.erase(provider);
        }
    }
};

AccountSecrets::AccountSecrets(UserDefaults &defaults, Keychain &keychain, SecretQueue &queue,
                               PendingSecrets &pending)
    : m_defaults(defaults), m_keychain(keychain), m_queue(queue), m_pending(pending) {}

void AccountSecrets::keep(const QString &secret, const QUuid &id, SecretDone done) {
    // Without the note, or the new secret would be erased at the next launch.
    if (m_pending.erasures.erase(id) > 0) {
        m_outdated.insert(id);
    }
    m_pending.save(m_defaults);
    m_queue.run(
        [&keychain = m_keychain, secret, id] { return keychain.set(secret, secretAccount(id)); },
        [this, id, decision = ++m_decisions[id], done = std::move(done)](SecretOutcome outcome) {
            if (outcome == SecretOutcome::done) {
                m_outdated.remove(id);
            }
            if (m_decisions.value(id) == decision) {
                if (m_outdated.contains(id)) { // or the next launch would ask the service with it
                    m_pending.erasures.insert(id);
                    m_pending.save(m_defaults);
                }
                m_defaults.set(configuredKey(id), true);
                if (outcome == SecretOutcome::done) {
                    m_defaults.set(secretKeptKey(id), true);
                }
            }
            done(outcome);
        });
}

void AccountSecrets::mark(const QUuid &id, bool isConnected) {
    ++m_decisions[id];
    // Of one that was connected earlier it may be unknown.
    if (isConnected && !m_defaults.boolean(configuredKey(id))) {
        m_defaults.set(secretKeptKey(id), false);
    }
    m_defaults.set(configuredKey(id), isConnected);
}

void AccountSecrets::noteRemoval(const QUuid &id) {
    m_pending.removals.insert(id);
    m_pending.save(m_defaults);
}

void AccountSecrets::forgetRemoval(const QUuid &id) {
    m_pending.removals.erase(id);
    m_pending.save(m_defaults);
}

void AccountSecrets::clear(const QUuid &id, SecretDone done) {
    erase(id, std::move(done)); // noted before the mark, which alone would hide the secret
    m_defaults.set(configuredKey(id), false);
}

void AccountSecrets::erase(const QUuid &id, SecretDone done) {
    m_pending.erasures.insert(id);
    m_pending.removals.erase(id); // in the same write: there is always one note of the two
    m_pending.save(m_defaults);
    m_defaults.remove(secretKeptKey(id));
    QStringList names{secretAccount(id)};
    for (const auto &[provider, target] : m_pending.moves) {
        if (target == id) {
            names << provider; // it has not come to the account yet
        }
    }
    m_queue.run(
        [&keychain = m_keychain, names] {
            auto outcome = SecretOutcome::done;
            for (auto name = names.begin(); outcome == SecretOutcome::done && name != names.end();
                 ++name) {
                outcome = keychain.erase(*name);
            }
            return outcome;
        },
        [this, id, decision = ++m_decisions[id], done = std::move(done)](SecretOutcome outcome) {
            if (outcome == SecretOutcome::done) {
                m_outdated.remove(id);
            } else {
                m_outdated.insert(id);
            }
            if (outcome == SecretOutcome::done && m_decisions.value(id) == decision) {
                m_pending.erasures.erase(id);
                std::erase_if(m_pending.moves,
                              [&id](const auto &move) { return move.second == id; });
                m_pending.save(m_defaults);
            }
            if (done) {
                done(outcome);
            }
        });
}

void AccountSecrets::resume(const std::vector<IntegrationConnection> &accounts,
                            std::function<void()> moved) {
    const auto isKept = [&accounts](const QUuid &id) {
        return std::any_of(accounts.begin(), accounts.end(),
                           [&id](const auto &account) { return account.id == id; });
    };
    for (const QUuid &id : std::exchange(m_pending.removals, {})) {
        if (!isKept(id)) {
            m_pending.erasures.insert(id);
        }
    }
    const auto moves = std::make_shared<std::vector<Move>>();
    for (const auto &[provider, id] : std::map(m_pending.moves)) {
        const bool isErased = m_pending.erasures.count(id) > 0;
        if (!isErased && isKept(id)) {
            moves->push_back({provider, id, ++m_decisions[id]});
        } else if (!isErased) {
            m_pending.moves.erase(provider);
        }
    }
    m_pending.save(m_defaults);
    const std::vector<QUuid> erasures(m_pending.erasures.begin(), m_pending.erasures.end());
    if (moves->empty()) {
        eraseNoted(erasures);
        return;
    }
    m_queue.run(
        [&keychain = m_keychain, moves] {
            auto outcome = SecretOutcome::done;
            for (auto move = moves->begin(); outcome == SecretOutcome::done && move != moves->end();
                 ++move) {
                move->run(keychain);
                outcome = move->outcome;
            }
            return outcome;
        },
        [this, moves, erasures, moved = std::move(moved)](SecretOutcome outcome) {
            if (takeMoves(*moves)) {
                moved();
            }
            if (outcome == SecretOutcome::done) {
                eraseNoted(erasures);
            }
        });
}

/// True when one of the accounts has its secret now.
bool AccountSecrets::takeMoves(const std::vector<Move> &moves) {
    bool hasMoved = false;
    for (const Move &move : moves) {
        if (move.hasSecret && m_decisions.value(move.id) == move.decision) {
            m_defaults.set(configuredKey(move.id), true);
            m_defaults.set(secretKeptKey(move.id), true);
            hasMoved = true;
        }
        if (move.outcome == SecretOutcome::done) {
            m_pending.moves.erase(move.provider);
        }
    }
    m_pending.save(m_defaults);
    return hasMoved;
}

/// One after the other, as long as the keyring does it.
void AccountSecrets::eraseNoted(std::vector<QUuid> ids) {
    std::erase_if(ids, [this](const QUuid &id) { return m_pending.erasures.count(id) == 0; });
    if (ids.empty()) {
        return;
    }
    const QUuid id = ids.back();
    ids.pop_back();
    erase(id, [this, ids = std::move(ids)](SecretOutcome outcome) {
        if (outcome == SecretOutcome::done) {
            eraseNoted(ids);
        }
    });
}

} // namespace zeph
