// SPDX-License-Identifier: MIT
#include "core/values/UuidText.h"
#include "integrations/accounts/AccountCoding.h"
#include "integrations/accounts/JsonRecords.h"
#include "integrations/accounts/RecordReader.h"

#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace zeph::coding {

namespace {

QJsonObject object(const IntegrationConnection &connection) {
    QJsonObject record{
        {u"id"_s, uuidText(connection.id)},
        {u"provider"_s, connection.provider},
        {u"name"_s, connection.name},
        {u"enabled"_s, connection.enabled},
        {u"showAhrefsAttribution"_s, connection.showAhrefsAttribution},
        {u"showContributionGraph"_s, connection.showContributionGraph},
        {u"contributionLayout"_s, connection.contributionLayout},
        {u"showStats"_s, connection.showStats},
    };
    if (connection.extra) {
        record.insert(u"extra"_s, *connection.extra);
    }
    if (connection.oauthClientId) {
        record.insert(u"oauthClientId"_s, *connection.oauthClientId);
    }
    if (connection.feedCount) {
        record.insert(u"feedCount"_s, *connection.feedCount);
    }
    return record;
}

std::optional<IntegrationConnection> connection(const QJsonValue &json) {
    RecordReader record(json);
    const auto id = record.uuid("id"_L1);
    IntegrationConnection read{
        .id = id ? *id : QUuid::createUuid(),
        .provider = record.requiredText("provider"_L1),
        .name = record.requiredText("name"_L1),
        .enabled = record.boolean("enabled"_L1).value_or(true),
        .extra = record.text("extra"_L1),
        .showAhrefsAttribution = record.boolean("showAhrefsAttribution"_L1).value_or(true),
        .oauthClientId = record.text("oauthClientId"_L1),
        .feedCount = record.integer("feedCount"_L1),
        .showContributionGraph = record.boolean("showContributionGraph"_L1).value_or(false),
        .contributionLayout = record.text("contributionLayout"_L1).value_or(u"y1"_s),
        .showStats = record.boolean("showStats"_L1).value_or(true),
    };
    return record.failed() ? std::nullopt : std::optional(std::move(read));
}

} // namespace

QByteArray json(const std::vector<IntegrationConnection> &connections) {
    QJsonArray array;
    for (const IntegrationConnection &connection : connections) {
        array.append(object(connection));
    }
    return QJsonDocument(array).toJson(QJsonDocument::Compact);
}

std::optional<std::vector<IntegrationConnection>> connections(const QByteArray &json) {
    return recordsIn(json, connection);
}

} // namespace zeph::coding
