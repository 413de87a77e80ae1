// SPDX-License-Identifier: MIT
#include "services/web/Json.h"

#include "base/DescribedError.h"

#include <QJsonDocument>

namespace zeph::json {

using namespace Qt::StringLiterals;

namespace {

QByteArray mark() {
    return QByteArrayLiteral("\xEF\xBB\xBF");
}

/// The library takes the first mark of every text for one of byte order and drops it, unless it is
/// escaped. Outside of texts both are errors.
QByteArray withMarksEscaped(QByteArray bytes) {
    return bytes.contains(mark()) ? bytes.replace(mark(), "\\ufeff") : bytes;
}

QJsonDocument document(const QByteArray &bytes) {
    QJsonParseError error;
    QJsonDocument parsed = QJsonDocument::fromJson(withMarksEscaped(bytes), &error);
    if (parsed.isNull()) {
        throw DescribedError(u"The answer could not be read: %1."_s.arg(error.errorString()));
    }
    return parsed;
}

/// The library knows only whole documents, so a fragment is read as an array of it alone.
QJsonValue fragment(const QByteArray &bytes) {
    const QJsonArray wrapped = document('[' + bytes + ']').array();
    if (wrapped.size() != 1) {
        throw DescribedError(wrapped.isEmpty()
                                 ? u"The answer could not be read: it is empty."_s
                                 : u"The answer could not be read: it holds several values."_s);
    }
    return wrapped.first();
}

} // namespace

QJsonValue parse(const QByteArray &bytes) {
    const QByteArray content =
        (bytes.startsWith(mark()) ? bytes.sliced(mark().size()) : bytes).trimmed();
    if (content.startsWith('{')) {
        return document(content).object();
    }
    if (content.startsWith('[')) {
        return document(content).array();
    }
    return fragment(content);
}

std::optional<qint64> integer(const QJsonValue &value) {
    if (!value.isDouble()) {
        return std::nullopt;
    }
    // The default comes back for a number that is not whole or does not fit.
    const qint64 whole = value.toInteger(0);
    return whole == value.toInteger(1) ? std::optional(whole) : std::nullopt;
}

std::optional<double> number(const QJsonValue &value) {
    return value.isDouble() ? std::optional(value.toDouble()) : std::nullopt;
}

std::optional<QString> text(const QJsonValue &value) {
    return value.isString() ? std::optional(value.toString()) : std::nullopt;
}

std::optional<bool> boolean(const QJsonValue &value) {
    return value.isBool() ? std::optional(value.toBool()) : std::nullopt;
}

std::optional<QJsonObject> object(const QJsonValue &value) {
    return value.isObject() ? std::optional(value.toObject()) : std::nullopt;
}

std::optional<QJsonArray> array(const QJsonValue &value) {
    return value.isArray() ? std::optional(value.toArray()) : std::nullopt;
}

} // namespace zeph::json
