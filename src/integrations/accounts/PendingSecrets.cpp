// SPDX-License-Identifier: MIT
#include "integrations/accounts/PendingSecrets.h"

#include "core/values/UuidText.h"
#include "platform/UserDefaults.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const auto pendingKey = u"zeph.integrations.pendingSecrets"_s;
const auto moveName = u"move"_s;
const auto eraseName = u"erase"_s;
const auto endpointsName = u"eraseEndpoints"_s;

} // namespace

PendingSecrets::PendingSecrets(UserDefaults &defaults) : m_defaults(defaults) {}

std::vector<SecretMove> PendingSecrets::moves() const {
    const std::lock_guard guard(m_storage);
    const QJsonObject all = stored().value(moveName).toObject();
    std::vector<SecretMove> moves;
    for (auto move = all.begin(); move != all.end(); ++move) {
        if (const auto id = uuidFromText(move.value().toString())) {
            moves.push_back({move.key(), *id});
        }
    }
    return moves;
}

std::vector<QUuid> PendingSecrets::erasures() const {
    return ids(eraseName);
}

std::vector<QUuid> PendingSecrets::endpoints() const {
    return ids(endpointsName);
}

void PendingSecrets::add(const SecretMove &move) {
    change([&move](QJsonObject &all) {
        QJsonObject moves = all.value(moveName).toObject();
        moves.insert(move.provider, uuidText(move.id));
        all.insert(moveName, moves);
    });
}

void PendingSecrets::done(const SecretMove &move) {
    change([&move](QJsonObject &all) {
        QJsonObject moves = all.value(moveName).toObject();
        moves.remove(move.provider);
        all.insert(moveName, moves);
    });
}

void PendingSecrets::addErasure(const QUuid &id) {
    const std::lock_guard guard(m_lock);
    ++m_openErasures[id];
    addId(eraseName, id);
}

void PendingSecrets::erased(const QUuid &id) {
    const std::lock_guard guard(m_lock);
    if (--m_openErasures[id] <= 0) {
        m_openErasures.remove(id);
        removeIds(eraseName, {id});
    }
}

void PendingSecrets::addEndpoint(const QUuid &id) {
    addId(endpointsName, id);
}

void PendingSecrets::endpointsErased(const std::vector<QUuid> &ids) {
    removeIds(endpointsName, ids);
}

std::vector<QUuid> PendingSecrets::ids(const QString &name) const {
    const std::lock_guard guard(m_storage);
    std::vector<QUuid> ids;
    for (const auto &text : stored().value(name).toArray()) {
        if (const auto id = uuidFromText(text.toString())) {
            ids.push_back(*id);
        }
    }
    return ids;
}

void PendingSecrets::addId(const QString &name, const QUuid &id) {
    change([&name, &id](QJsonObject &all) {
        QJsonArray texts = all.value(name).toArray();
        if (!texts.contains(uuidText(id))) {
            texts.append(uuidText(id));
            all.insert(name, texts);
        }
    });
}

void PendingSecrets::removeIds(const QString &name, const std::vector<QUuid> &ids) {
    change([&name, &ids](QJsonObject &all) {
        QJsonArray rest;
        for (const auto &text : all.value(name).toArray()) {
            const auto isGone = [&text](const QUuid &id) {
                return text.toString() == uuidText(id);
            };
            if (std::none_of(ids.begin(), ids.end(), isGone)) {
                rest.append(text);
            }
        }
        all.insert(name, rest);
    });
}

QJsonObject PendingSecrets::stored() const {
    const auto bytes = m_defaults.get<QByteArray>(pendingKey);
    return bytes ? QJsonDocument::fromJson(*bytes).object() : QJsonObject();
}

void PendingSecrets::change(const std::function<void(QJsonObject &)> &edit) {
    const std::lock_guard guard(m_storage);
    const QJsonObject before = stored();
    QJsonObject all = before;
    edit(all);
    if (all.value(moveName).toObject().isEmpty()) {
        all.remove(moveName);
    }
    for (const QString &name : {eraseName, endpointsName}) {
        if (all.value(name).toArray().isEmpty()) {
            all.remove(name);
        }
    }
    if (all == before) {
        return;
    }
    if (all.isEmpty()) {
        m_defaults.remove(pendingKey);
    } else {
        m_defaults.set(pendingKey, QJsonDocument(all).toJson(QJsonDocument::Compact));
    }
}

} // namespace zeph
