// SPDX-License-Identifier: MIT
#include "integrations/accounts/AccountSecrets.h"

#include "integrations/accounts/AccountKeys.h"
#include "integrations/accounts/ConnectedMarks.h"
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
      m_marks(std::make_shared<ConnectedMarks>(defaults)),
      m_alive(std::make_shared<bool>(true)) {}

AccountSecrets::~AccountSecrets() = default;

void AccountSecrets::keep(const QString &secret, const QUuid &id, std::function<void()> done) {
    run(
        [&keychain = m_keychain, marks = m_marks, mark = m_marks->promise(id), secret, id] {
            keychain.set(secret, secretAccount(id));
            if (!keychain.isClosed()) {
                marks->fulfil(id, mark);
            }
        },
        std::move(done));
}

void AccountSecrets::markConnected(const QUuid &id) {
    m_marks->set(id, true);
}

void AccountSecrets::clear(const QUuid &id) {
    m_pending->addErasure(id); // before the mark, which alone would hide a secret that stays
    m_marks->set(id, false);
    startErasure(id);
}

void AccountSecrets::erase(const QUuid &id) {
    m_pending->addErasure(id);
    startErasure(id);
}

void AccountSecrets::startErasure(const QUuid &id) {
    m_tasks.run([&keychain = m_keychain, pending = m_pending, id] {
        keychain.erase(secretAccount(id));
        if (!keychain.isClosed()) {
            pending->erased(id);
        }
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
    std::vector<SecretMove> moves;
    for (const SecretMove &move : m_pending->moves()) {
        const bool isKept =
            std::any_of(connections.begin(), connections.end(),
                        [&move](const auto &connection) { return connection.id == move.id; });
        if (std::find(erasures.begin(), erasures.end(), move.id) != erasures.end()) {
            drop(move);
        } else if (isKept) {
            moves.push_back(move);
        } else {
            m_pending->done(move);
        }
    }
    move(moves, std::move(done));
    for (const QUuid &id : erasures) {
        erase(id);
    }
}

void AccountSecrets::move(const std::vector<SecretMove> &moves, std::function<void()> done) {
    std::vector<quint64> marks;
    std::transform(moves.begin(), moves.end(), std::back_inserter(marks),
                   [this](const SecretMove &move) { return m_marks->promise(move.id); });
    const auto hasMoved = std::make_shared<bool>(false);
    const auto work = [&keychain = m_keychain, pending = m_pending, connected = m_marks, moves,
                       marks, hasMoved] {
        for (std::size_t index = 0; index < moves.size(); ++index) {
            // In an order that ends the same when it is cut off anywhere and begun again.
            const bool isCopied = copyLegacySecret(moves[index], keychain);
            if (isCopied && !keychain.isClosed()) {
                connected->fulfil(moves[index].id, marks[index]);
                keychain.erase(moves[index].provider);
                *hasMoved = true;
            }
            if (keychain.isClosed()) {
                return;
            }
            pending->done(moves[index]);
        }
    };
    if (!moves.empty()) {
        run(work, [hasMoved, done = std::move(done)] {
            if (*hasMoved) {
                done();
            }
        });
    }
}

/// The account was cleared or removed before its secret came to it.
void AccountSecrets::drop(const SecretMove &move) {
    m_tasks.run([&keychain = m_keychain, pending = m_pending, move] {
        keychain.erase(move.provider);
        if (!keychain.isClosed()) {
            pending->done(move);
        }
    });
}

void AccountSecrets::keepEndpoints(const QString &text, bool isEmpty, std::function<void()> done) {
    run(
        [&keychain = m_keychain, &defaults = m_defaults, pending = m_pending,
         erased = m_pending->endpoints(), text, isEmpty] {
            if (!isEmpty) {
                defaults.set(endpointsExistKey(), true);
            }
            keychain.set(text, endpointsAccount());
            if (keychain.isClosed()) {
                return;
            }
            if (isEmpty) {
                defaults.set(endpointsExistKey(), false);
            }
            pending->endpointsErased(erased);
        },
        std::move(done));
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

bool AccountSecrets::finish(std::chrono::milliseconds patience) {
    const bool isDone = m_tasks.waitUntilIdle(patience);
    m_tasks.dropWaiting();
    m_keychain.close();
    return isDone;
}

} // namespace zeph
