// SPDX-License-Identifier: MIT
#pragma once

#include "base/UuidText.h"
#include "services/web/Json.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

#include <optional>
#include <vector>

namespace zeph {

/// A function `fields(coder, record)` names the fields of a kind of record, once for both ways:
/// `required` for what every stored record has, `optional` for what may be missing.

/// Writes a record as a JSON object; what is absent is left out.
class RecordWriter {
public:
    template <typename Record>
    static QJsonValue json(const Record &record) {
        RecordWriter writer;
        fields(writer, record);
        return writer.m_object;
    }
    template <typename Record>
    static QJsonValue json(const std::vector<Record> &records) {
        QJsonArray array;
        for (const Record &record : records) {
            array.append(json(record));
        }
        return array;
    }
    static QJsonValue json(const QString &text) { return text; }
    static QJsonValue json(bool value) { return value; }
    static QJsonValue json(qint64 number) { return number; }
    static QJsonValue json(const QUuid &id) { return uuidText(id); }

    template <typename T>
    void required(QLatin1StringView key, const T &field) {
        m_object.insert(key, json(field));
    }
    template <typename T>
    void optional(QLatin1StringView key, const T &field) {
        required(key, field);
    }
    template <typename T>
    void optional(QLatin1StringView key, const std::optional<T> &field) {
        if (field) {
            required(key, *field);
        }
    }

private:
    QJsonObject m_object;
};

/// Reads a record strictly: a key that is missing or null leaves its field as it is, a value of
/// another type spoils the whole record, and so the list that holds it.
class RecordReader {
public:
    /// False when `json` is no such record.
    template <typename Record>
    static bool read(const QJsonValue &json, Record &record) {
        RecordReader reader(json);
        record.id = QUuid::createUuid();
        fields(reader, record);
        return !reader.m_failed;
    }
    template <typename Record>
    static bool read(const QJsonValue &json, std::vector<Record> &records) {
        const QJsonArray array = json.toArray();
        bool isRead = json.isArray();
        for (auto element = array.begin(); isRead && element != array.end(); ++element) {
            isRead = read(QJsonValue(*element), records.emplace_back());
        }
        return isRead;
    }
    template <typename T>
    static bool read(const QJsonValue &json, std::optional<T> &field) {
        return read(json, field.emplace());
    }
    static bool read(const QJsonValue &json, QString &text) {
        text = json.toString();
        return json.isString();
    }
    static bool read(const QJsonValue &json, bool &value) {
        value = json.toBool();
        return json.isBool();
    }
    /// A whole number inside 64 bits, in whatever way it is written.
    static bool read(const QJsonValue &json, qint64 &number) {
        const auto whole = json::integer(json);
        number = whole.value_or(0);
        return whole.has_value();
    }
    /// The hyphenated form in either case.
    static bool read(const QJsonValue &json, QUuid &id) {
        const auto found = uuidFromText(json.toString());
        id = found.value_or(QUuid());
        return json.isString() && found;
    }

    template <typename T>
    void required(QLatin1StringView key, T &field) {
        m_failed = m_failed || !read(m_object.value(key), field);
    }
    template <typename T>
    void optional(QLatin1StringView key, T &field) {
        const QJsonValue value = m_object.value(key);
        if (!value.isUndefined() && !value.isNull()) {
            required(key, field);
        }
    }

private:
    explicit RecordReader(const QJsonValue &json)
        : m_object(json.toObject()), m_failed(!json.isObject()) {}

    QJsonObject m_object;
    bool m_failed;
};

} // namespace zeph
