// SPDX-License-Identifier: MIT
#include "services/accounts/EndpointList.h"

#include "base/Console.h"
#include "base/DamagedName.h"
#include "ports/RunLoop.h"
#include "ports/UserDefaults.h"
#include "services/accounts/AccountCoding.h"
#include "services/accounts/AccountKeys.h"
#include "services/accounts/Keychain.h"
#include "services/accounts/PendingSecrets.h"

#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// Keeps the endpoints under the first name that holds nothing else. What is there already is
/// written once more, since the keychain may only remember it.
SecretOutcome keepDamaged(Keychain &keychain, const QString &endpoints) {
    auto outcome = SecretOutcome::done;
    const QString name = unusedDamagedName(endpointsAccount(), [&](const QString &taken) {
        const auto kept = keychain.get(taken);
        outcome = kept.outcome;
        return kept.value && kept.value != endpoints;
    });
    return outcome == SecretOutcome::done ? keychain.set(endpoints, name) : outcome;
}

/// What can't be understood is kept under another name, for whoever can mend it.
SecretOutcome readEndpoints(Keychain &keychain, std::vector<CustomAPIConfig> &read) {
    const auto text = keychain.get(endpointsAccount());
    if (!text.value) {
        return text.outcome;
    }
    auto configs = coding::customAPIs(text.value->toUtf8());
    if (configs) {
        read = std::move(*configs);
        return SecretOutcome::done;
    }
    printLine(u"[Zeph] the custom endpoints in the keyring can't be read"_s);
    return keepDamaged(keychain, *text.value);
}

} // namespace

EndpointList::EndpointList(UserDefaults &defaults, Keychain &keychain, SecretQueue &queue,
                           PendingSecrets &pending, RunLoop &runLoop, Told told)
    : m_defaults(defaults),
      m_keychain(keychain),
      m_queue(queue),
      m_pending(pending),
      m_runLoop(runLoop),
      m_told(std::move(told)) {}

void EndpointList::loadAtLaunch() {
    if (m_defaults.boolean(endpointsExistKey())) {
        m_loaded = SecretOutcome::refused;
        load();
    }
}

void EndpointList::read(bool isWanted) {
    if (isLoaded() || std::exchange(m_isLoading, true)) {
        return;
    }
    const auto loaded = std::make_shared<Configs>();
    m_queue.run(
        [&keychain = m_keychain, isWanted, loaded] {
            if (isWanted) {
                keychain.askAgain();
            }
            return readEndpoints(keychain, *loaded);
        },
        [this, loaded](SecretOutcome outcome) {
            m_isLoading = false;
            m_loaded = outcome;
            if (outcome == SecretOutcome::done) {
                take(std::move(*loaded));
            }
        });
}

void EndpointList::take(Configs loaded) {
    const auto removed = std::erase_if(loaded, [this](const CustomAPIConfig &config) {
        return m_pending.endpoints.count(config.id) > 0;
    });
    m_told.willChange();
    m_configs = std::move(loaded);
    if (removed > 0) {
        write({});
        return;
    }
    m_pending.endpoints.clear();
    m_pending.save(m_defaults);
    if (!m_configs.empty()) {
        m_told.cameIn();
    }
}

void EndpointList::upsert(const Configs &configs, SecretDone done) {
    const auto change = [this, &configs](Configs &all) {
        for (const CustomAPIConfig &config : configs) {
            m_removals.erase(config.id);
            m_pending.endpoints.erase(config.id);
            const auto place = placeOf(all, config.id);
            place == all.end() ? all.push_back(config) : void(*place = config);
        }
    };
    edit(change, std::move(done));
}

void EndpointList::remove(const QUuid &id, SecretDone done) {
    const auto change = [this, &id](Configs &all) {
        m_removals.erase(id);
        m_pending.endpoints.insert(id);
        takeOut(all, id);
    };
    edit(change, std::move(done));
}

void EndpointList::edit(const std::function<void(Configs &)> &change, SecretDone done) {
    if (!isLoaded()) {
        // What is kept must not be overwritten by a list that lacks it.
        open();
        m_runLoop.post(m_owner.whileAlive([done = std::move(done), outcome = m_loaded] {
            if (done) {
                done(outcome);
            }
        }));
        return;
    }
    m_told.willChange();
    change(m_configs);
    m_pending.save(m_defaults);
    write(std::move(done));
}

void EndpointList::write(SecretDone done) {
    if (!m_configs.empty()) {
        m_defaults.set(endpointsExistKey(), true);
    }
    const auto text = QString::fromUtf8(coding::json(m_configs));
    m_queue.run([&keychain = m_keychain, text] { return keychain.set(text, endpointsAccount()); },
                [this, write = ++m_writes, done = std::move(done)](SecretOutcome outcome) {
                    if (outcome == SecretOutcome::done && write == m_writes) {
                        written(write);
                    }
                    m_told.changed();
                    if (done) {
                        done(outcome);
                    }
                });
}

/// The keyring has the list as it was at this write, the last one.
void EndpointList::written(int write) {
    std::erase_if(m_pending.endpoints, [this, write](const QUuid &id) {
        const auto removal = m_removals.find(id);
        return removal == m_removals.end() || removal->second.writes < write;
    });
    // A list with an endpoint that is noted has to be looked at again.
    m_defaults.set(endpointsExistKey(), !m_configs.empty() || !m_pending.endpoints.empty());
    m_pending.save(m_defaults);
}

bool EndpointList::removeForNow(const QUuid &id) {
    if (!isLoaded() || placeOf(m_configs, id) == m_configs.end()) {
        return false;
    }
    m_told.willChange();
    m_pending.endpoints.insert(id);
    m_pending.save(m_defaults);
    if (auto taken = takeOut(m_configs, id)) {
        m_removals.insert_or_assign(id, Removal{std::move(*taken), m_writes});
    }
    m_told.changed();
    return true;
}

bool EndpointList::restore(const QUuid &id) {
    auto removal = m_removals.extract(id);
    if (!removal) {
        return false;
    }
    m_told.willChange();
    putBack(m_configs, std::move(removal.mapped().taken));
    m_pending.endpoints.erase(id);
    m_pending.save(m_defaults);
    if (removal.mapped().writes == m_writes) {
        m_told.changed(); // the keyring never lost it
    } else {
        write({});
    }
    return true;
}

bool EndpointList::settle(const QUuid &id, SecretDone done) {
    if (m_removals.erase(id) == 0) {
        return false;
    }
    write(std::move(done));
    return true;
}

void EndpointList::settleAll() {
    if (!m_removals.empty()) {
        m_removals.clear();
        write({});
    }
}

} // namespace zeph
