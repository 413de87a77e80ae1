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

} // namespace

PendingSecrets::PendingSecrets(UserDefaults &defaults) : m_defaults(defaults) {}

std::vector<SecretMove> PendingSecrets::moves() const {
    const std::lock_guard guard(m_lock);
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
    const std::lock_guard guard(m_lock);
    std::vector<QUuid> ids;
    for (const auto &text : stored().value(eraseName).toArray()) {
        if (const auto id = uuidFromText(text.toString())) {
            ids.push_back(*id);
        }
    }
    return ids;
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
    change([&id](QJsonObject &all) {
        QJsonArray erasures = all.value(eraseName).toArray();
        if (!erasures.contains(uuidText(id))) {
            erasures.append(uuidText(id));
            all.insert(eraseName, erasures);
        }
    });
}

void PendingSecrets::erased(const QUuid &id) {
    change([&id](QJsonObject &all) {
        const QJsonArray before = all.value(eraseName).toArray();
        QJsonArray erasures;
        std::copy_if(before.begin(), before.end(), std::back_inserter(erasures),
                     [&id](const QJsonValue &text) { return text.toString() != uuidText(id); });
        all.insert(eraseName, erasures);
    });
}

QJsonObject PendingSecrets::stored() const {
    const auto bytes = m_defaults.get<QByteArray>(pendingKey);
    return bytes ? QJsonDocument::fromJson(*bytes).object() : QJsonObject();
}

void PendingSecrets::change(const std::function<void(QJsonObject &)> &edit) {
    const std::lock_guard guard(m_lock);
    const QJsonObject before = stored();
    QJsonObject all = before;
    edit(all);
    if (all.value(moveName).toObject().isEmpty()) {
        all.remove(moveName);
    }
    if (all.value(eraseName).toArray().isEmpty()) {
        all.remove(eraseName);
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
