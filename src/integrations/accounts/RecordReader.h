// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <QUuid>

#include <optional>

namespace zeph {

/// Reads one stored JSON object strictly: a key that is missing or null is absent, a value of
/// another type spoils the whole record, which `failed` tells at the end.
class RecordReader {
public:
    explicit RecordReader(const QJsonValue &record);

    std::optional<QString> text(QLatin1StringView key);
    std::optional<bool> boolean(QLatin1StringView key);

    /// A whole number inside 64 bits, in whatever way it is written.
    std::optional<qint64> integer(QLatin1StringView key);

    /// The hyphenated form in either case.
    std::optional<QUuid> uuid(QLatin1StringView key);
    std::optional<QJsonArray> array(QLatin1StringView key);

    /// As above, but a missing value spoils the record, too.
    QString requiredText(QLatin1StringView key);
    QUuid requiredUuid(QLatin1StringView key);

    /// For what else is wrong with the record.
    void fail() { m_failed = true; }
    bool failed() const { return m_failed; }

private:
    /// The value under `key`, absent when there is none.
    std::optional<QJsonValue> present(QLatin1StringView key) const;
    template <typename T>
    std::optional<T> failing();

    QJsonObject m_record;
    bool m_failed;
};

} // namespace zeph
