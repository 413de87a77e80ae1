// SPDX-License-Identifier: MIT
#include "core/values/UuidText.h"
#include "integrations/accounts/AccountCoding.h"
#include "integrations/accounts/HeaderLine.h"
#include "integrations/accounts/JsonRecords.h"
#include "integrations/accounts/RecordReader.h"

#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace zeph::coding {

namespace {

QJsonObject object(const HTTPHeaderEntry &header) {
    return {{u"id"_s, uuidText(header.id)}, {u"name"_s, header.name}, {u"value"_s, header.value}};
}

QJsonObject object(const CustomAPIField &field) {
    return {
        {u"id"_s, uuidText(field.id)}, {u"label"_s, field.label}, {u"jsonPath"_s, field.jsonPath}};
}

QJsonObject object(const CustomAPIConfig &config);

template <typename Record>
QJsonArray array(const std::vector<Record> &records) {
    QJsonArray array;
    for (const Record &record : records) {
        array.append(object(record));
    }
    return array;
}

QJsonObject object(const CustomAPIConfig &config) {
    return {{u"id"_s, uuidText(config.id)},
            {u"name"_s, config.name},
            {u"urlString"_s, config.urlString},
            {u"headers"_s, array(config.headers)},
            {u"fields"_s, array(config.fields)}};
}

std::optional<HTTPHeaderEntry> header(const QJsonValue &json) {
    RecordReader record(json);
    HTTPHeaderEntry read{record.requiredUuid("id"_L1), record.requiredText("name"_L1),
                         record.requiredText("value"_L1)};
    return record.failed() ? std::nullopt : std::optional(std::move(read));
}

std::optional<CustomAPIField> field(const QJsonValue &json) {
    RecordReader record(json);
    CustomAPIField read{record.requiredUuid("id"_L1), record.requiredText("label"_L1),
                        record.requiredText("jsonPath"_L1)};
    return record.failed() ? std::nullopt : std::optional(std::move(read));
}

/// The list under `key`, empty when there is none.
template <typename Record>
std::vector<Record> list(RecordReader &record, QLatin1StringView key,
                         std::optional<Record> (*read)(const QJsonValue &)) {
    auto records = recordsIn(record.array(key).value_or(QJsonArray()), read);
    if (!records) {
        record.fail();
    }
    return std::move(records).value_or(std::vector<Record>());
}

void readEarlyForm(RecordReader &record, CustomAPIConfig &config) {
    if (config.headers.empty()) {
        const auto line = record.text("headerLine"_L1);
        if (const auto header = line ? parseHeader(*line) : std::nullopt) {
            config.headers.push_back({QUuid::createUuid(), header->name, header->value});
        }
    }
    if (config.fields.empty()) {
        if (const auto path = record.text("jsonPath"_L1)) {
            config.fields.push_back(
                {QUuid::createUuid(), config.name.isEmpty() ? u"Value"_s : config.name, *path});
        }
    }
}

std::optional<CustomAPIConfig> config(const QJsonValue &json) {
    RecordReader record(json);
    CustomAPIConfig read;
    const auto id = record.uuid("id"_L1);
    read.name = record.text("name"_L1).value_or(QString());
    read.urlString = record.text("urlString"_L1).value_or(QString());
    read.headers = list(record, "headers"_L1, header);
    read.fields = list(record, "fields"_L1, field);
    readEarlyForm(record, read);
    read.id = id ? *id : QUuid::createUuid();
    return record.failed() ? std::nullopt : std::optional(std::move(read));
}

} // namespace

QByteArray json(const std::vector<CustomAPIConfig> &configs) {
    return QJsonDocument(array(configs)).toJson(QJsonDocument::Compact);
}

std::optional<std::vector<CustomAPIConfig>> customAPIs(const QByteArray &json) {
    return recordsIn(json, config);
}

} // namespace zeph::coding
