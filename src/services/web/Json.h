// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>

#include <optional>

/// Reading JSON by what a value is: nothing is converted on the way.
namespace zeph::json {

/// Any JSON value, a bare number or text included; a byte order mark is skipped. Throws
/// `DescribedError` for what is no JSON, an empty text among it.
QJsonValue parse(const QByteArray &bytes);

/// A whole number inside 64 bits, written as one or as a double; never a boolean or a text.
std::optional<qint64> integer(const QJsonValue &value);

/// A number; never a boolean or a text.
std::optional<double> number(const QJsonValue &value);

std::optional<QString> text(const QJsonValue &value);
std::optional<bool> boolean(const QJsonValue &value);
std::optional<QJsonObject> object(const QJsonValue &value);
std::optional<QJsonArray> array(const QJsonValue &value);

} // namespace zeph::json
