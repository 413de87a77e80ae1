// SPDX-License-Identifier: MIT
#include "services/accounts/AccountCoding.h"

#include "services/accounts/HeaderLine.h"
#include "services/accounts/RecordCoder.h"

#include <QJsonDocument>

#include <type_traits>

using namespace Qt::StringLiterals;

namespace zeph {

/// Whether the record is the one, to be read or to be written.
template <typename Record, typename One>
concept Is = std::is_same_v<std::remove_const_t<Record>, One>;

template <typename Coder, Is<IntegrationConnection> Record>
void fields(Coder &coder, Record &record) {
    coder.optional("id"_L1, record.id);
    coder.required("provider"_L1, record.provider);
    coder.required("name"_L1, record.name);
    coder.optional("enabled"_L1, record.enabled);
    coder.optional("extra"_L1, record.extra);
    coder.optional("showAhrefsAttribution"_L1, record.showAhrefsAttribution);
    coder.optional("oauthClientId"_L1, record.oauthClientId);
    coder.optional("feedCount"_L1, record.feedCount);
    coder.optional("showContributionGraph"_L1, record.showContributionGraph);
    coder.optional("contributionLayout"_L1, record.contributionLayout);
    coder.optional("showStats"_L1, record.showStats);
}

template <typename Coder, Is<HTTPHeaderEntry> Record>
void fields(Coder &coder, Record &record) {
    coder.required("id"_L1, record.id);
    coder.required("name"_L1, record.name);
    coder.required("value"_L1, record.value);
}

template <typename Coder, Is<CustomAPIField> Record>
void fields(Coder &coder, Record &record) {
    coder.required("id"_L1, record.id);
    coder.required("label"_L1, record.label);
    coder.required("jsonPath"_L1, record.jsonPath);
}

namespace {

/// One header line and one path, as early versions kept them.
void readEarlyForm(RecordReader &reader, CustomAPIConfig &config) {
    std::optional<QString> line;
    std::optional<QString> path;
    if (config.headers.empty()) {
        reader.optional("headerLine"_L1, line);
    }
    if (config.fields.empty()) {
        reader.optional("jsonPath"_L1, path);
    }
    if (const auto header = line ? parseHeader(*line) : std::nullopt) {
        config.headers.push_back({QUuid::createUuid(), header->name, header->value});
    }
    if (path) {
        const QString label = config.name.isEmpty() ? u"Value"_s : config.name;
        config.fields.push_back({QUuid::createUuid(), label, *path});
    }
}

template <typename Record>
std::optional<std::vector<Record>> list(const QByteArray &json) {
    const QJsonDocument document = QJsonDocument::fromJson(json);
    std::vector<Record> records;
    const bool isRead =
        document.isArray() && RecordReader::read(QJsonValue(document.array()), records);
    return isRead ? std::optional(std::move(records)) : std::nullopt;
}

template <typename Record>
QByteArray text(const std::vector<Record> &records) {
    const auto array = RecordWriter::json(records).toArray();
    return QJsonDocument(array).toJson(QJsonDocument::Compact);
}

} // namespace

template <typename Coder, Is<CustomAPIConfig> Record>
void fields(Coder &coder, Record &record) {
    coder.optional("id"_L1, record.id);
    coder.optional("name"_L1, record.name);
    coder.optional("urlString"_L1, record.urlString);
    coder.optional("headers"_L1, record.headers);
    coder.optional("fields"_L1, record.fields);
    if constexpr (std::is_same_v<Coder, RecordReader>) {
        readEarlyForm(coder, record);
    }
}

namespace coding {

QByteArray json(const std::vector<IntegrationConnection> &connections) {
    return text(connections);
}

std::optional<std::vector<IntegrationConnection>> connections(const QByteArray &json) {
    return list<IntegrationConnection>(json);
}

QByteArray json(const std::vector<CustomAPIConfig> &configs) {
    return text(configs);
}

std::optional<std::vector<CustomAPIConfig>> customAPIs(const QByteArray &json) {
    return list<CustomAPIConfig>(json);
}

} // namespace coding

} // namespace zeph
