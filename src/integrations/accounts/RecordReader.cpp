// SPDX-License-Identifier: MIT
#include "integrations/accounts/RecordReader.h"

#include "core/values/UuidText.h"

namespace zeph {

RecordReader::RecordReader(const QJsonValue &record)
    : m_record(record.toObject()), m_failed(!record.isObject()) {}

std::optional<QJsonValue> RecordReader::present(QLatin1StringView key) const {
    const QJsonValue value = m_record.value(key);
    return value.isUndefined() || value.isNull() ? std::nullopt : std::optional(value);
}

template <typename T>
std::optional<T> RecordReader::failing() {
    m_failed = true;
    return std::nullopt;
}

std::optional<QString> RecordReader::text(QLatin1StringView key) {
    const auto value = present(key);
    if (value && !value->isString()) {
        return failing<QString>();
    }
    return value ? std::optional(value->toString()) : std::nullopt;
}

std::optional<bool> RecordReader::boolean(QLatin1StringView key) {
    const auto value = present(key);
    if (value && !value->isBool()) {
        return failing<bool>();
    }
    return value ? std::optional(value->toBool()) : std::nullopt;
}

std::optional<qint64> RecordReader::integer(QLatin1StringView key) {
    const auto value = present(key);
    if (!value) {
        return std::nullopt;
    }
    // The default comes back for what is no number, is not whole or does not fit.
    const qint64 whole = value->toInteger(0);
    return whole == value->toInteger(1) ? std::optional(whole) : failing<qint64>();
}

std::optional<QUuid> RecordReader::uuid(QLatin1StringView key) {
    const auto value = text(key);
    if (!value) {
        return std::nullopt;
    }
    const auto id = uuidFromText(*value);
    return id ? id : failing<QUuid>();
}

std::optional<QJsonArray> RecordReader::array(QLatin1StringView key) {
    const auto value = present(key);
    if (value && !value->isArray()) {
        return failing<QJsonArray>();
    }
    return value ? std::optional(value->toArray()) : std::nullopt;
}

QString RecordReader::requiredText(QLatin1StringView key) {
    const auto value = text(key);
    m_failed = m_failed || !value;
    return value.value_or(QString());
}

QUuid RecordReader::requiredUuid(QLatin1StringView key) {
    const auto value = uuid(key);
    m_failed = m_failed || !value;
    return value.value_or(QUuid());
}

} // namespace zeph
