// SPDX-License-Identifier: MIT
#include "services/accounts/PendingSecrets.h"

#include "base/UuidText.h"
#include "ports/UserDefaults.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const auto pendingKey = u"zeph.integrations.pendingSecrets"_s;
const auto moveName = u"move"_s;
const auto eraseName = u"erase"_s;
const auto endpointsName = u"eraseEndpoints"_s;
const auto removalsName = u"eraseUnlessKept"_s;

std::set<QUuid> ids(const QJsonValue &texts) {
    std::set<QUuid> ids;
    for (const auto &text : texts.toArray()) {
        if (const auto id = uuidFromText(text.toString())) {
            ids.insert(*id);
        }
    }
    return ids;
}

void insert(QJsonObject &all, const QString &name, const std::set<QUuid> &ids) {
    QJsonArray texts;
    for (const QUuid &id : ids) {
        texts.append(uuidText(id));
    }
    if (!texts.isEmpty()) {
        all.insert(name, texts);
    }
}

} // namespace

PendingSecrets PendingSecrets::read(const UserDefaults &defaults) {
    const auto bytes = defaults.get<QByteArray>(pendingKey).value_or(QByteArray());
    const QJsonObject all = QJsonDocument::fromJson(bytes).object();
    PendingSecrets pending{
        {}, ids(all.value(eraseName)), ids(all.value(endpointsName)), ids(all.value(removalsName))};
    const QJsonObject moves = all.value(moveName).toObject();
    for (auto move = moves.begin(); move != moves.end(); ++move) {
        if (const auto id = uuidFromText(move.value().toString())) {
            pending.moves.emplace(move.key(), *id);
        }
    }
    return pending;
}

void PendingSecrets::save(UserDefaults &defaults) const {
    QJsonObject all;
    QJsonObject moved;
    for (const auto &[provider, id] : moves) {
        moved.insert(provider, uuidText(id));
    }
    if (!moved.isEmpty()) {
        all.insert(moveName, moved);
    }
    insert(all, eraseName, erasures);
    insert(all, endpointsName, endpoints);
    insert(all, removalsName, removals);
    const auto stored = defaults.value(pendingKey);
    if (all.isEmpty() && stored) {
        defaults.remove(pendingKey);
    }
    const QByteArray json = QJsonDocument(all).toJson(QJsonDocument::Compact);
    if (!all.isEmpty() && stored != std::optional<DefaultsValue>(json)) {
        defaults.set(pendingKey, json);
    }
}

} // namespace zeph
