// SPDX-License-Identifier: MIT
#include "services/custom/JsonLeaves.h"

#include "base/FixedDecimals.h"
#include "base/WholeNumber.h"
#include "services/web/Json.h"

#include <QJsonDocument>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace zeph::CustomAPI {

namespace {

/// The value one step below `json`.
std::optional<QJsonValue> child(const QJsonValue &json, const QString &piece) {
    if (json.isObject()) {
        const QJsonObject object = json.toObject();
        const auto found = object.constFind(piece);
        return found != object.constEnd() ? std::optional<QJsonValue>(*found) : std::nullopt;
    }
    if (json.isArray()) {
        const QJsonArray array = json.toArray();
        const auto index = wholeNumber(piece);
        const bool isInside = index && *index >= 0 && *index < array.size();
        return isInside ? std::optional<QJsonValue>(array.at(*index)) : std::nullopt;
    }
    return std::nullopt;
}

bool isLeaf(const QJsonValue &value) {
    return !value.isObject() && !value.isArray();
}

QString formatNumber(const QJsonValue &value) {
    if (const auto whole = json::integer(value)) {
        return QString::number(*whole);
    }
    const double number = value.toDouble();
    // A whole number beyond 64 bits keeps its digits.
    return fixedDecimals(number, std::trunc(number) == number ? 0 : 2);
}

/// One walk through an answer.
class Listing {
public:
    Listing(std::size_t maxLeaves, qsizetype maxArrayItems)
        : m_maxLeaves(maxLeaves), m_maxArrayItems(maxArrayItems) {}

    void visit(const QJsonValue &value, const QString &path) {
        if (m_leaves.size() >= m_maxLeaves) {
            return;
        }
        if (value.isObject()) {
            visitObject(value.toObject(), path);
        } else if (value.isArray()) {
            visitArray(value.toArray(), path);
        } else {
            m_leaves.push_back({path, format(value)});
        }
    }

    std::vector<JsonLeaf> take() { return std::move(m_leaves); }

private:
    void visitObject(const QJsonObject &object, const QString &path) {
        // The values come with their keys, so that none has to be looked up.
        std::vector<std::pair<QString, QJsonValue>> entries;
        for (auto entry = object.constBegin(); entry != object.constEnd(); ++entry) {
            if (isReachable(object, entry)) {
                entries.emplace_back(entry.key(), entry.value());
            }
        }
        std::stable_sort(entries.begin(), entries.end(),
                         [](const auto &a, const auto &b) { return a.first < b.first; });
        for (const auto &[key, value] : entries) {
            visit(value, below(path, key));
        }
    }

    void visitArray(const QJsonArray &array, const QString &path) {
        for (qsizetype index = 0; index < std::min(array.size(), m_maxArrayItems); ++index) {
            visit(array.at(index), below(path, QString::number(index)));
        }
    }

    /// Whether a path leads to `entry`. The library finds no key that begins with a byte order
    /// mark.
    static bool isReachable(const QJsonObject &object, QJsonObject::const_iterator entry) {
        const QString key = entry.key();
        return !key.isEmpty() && !key.contains(u'.') && object.constFind(key) == entry;
    }

    static QString below(const QString &path, const QString &piece) {
        return path.isEmpty() ? piece : path + u'.' + piece;
    }

    std::size_t m_maxLeaves;
    qsizetype m_maxArrayItems;
    std::vector<JsonLeaf> m_leaves;
};

} // namespace

std::optional<QJsonValue> extract(const QJsonValue &json, const QString &path) {
    std::optional<QJsonValue> current = json;
    for (const QString &piece : path.split(u'.', Qt::SkipEmptyParts)) {
        current = child(*current, piece);
        if (!current) {
            return std::nullopt;
        }
    }
    return isLeaf(*current) ? current : std::nullopt;
}

QString format(const QJsonValue &value) {
    switch (value.type()) {
    case QJsonValue::Double:
        return formatNumber(value);
    case QJsonValue::Bool:
        return value.toBool() ? u"yes"_s : u"no"_s;
    case QJsonValue::String:
        return value.toString();
    case QJsonValue::Null:
        return u"null"_s;
    case QJsonValue::Array:
    case QJsonValue::Object:
    case QJsonValue::Undefined:
        break;
    }
    const QJsonDocument document = QJsonDocument::fromVariant(value.toVariant());
    return QString::fromUtf8(document.toJson(QJsonDocument::Compact));
}

std::vector<JsonLeaf> flatten(const QJsonValue &json, std::size_t maxLeaves,
                              qsizetype maxArrayItems) {
    Listing listing(maxLeaves, maxArrayItems);
    listing.visit(json, {});
    return listing.take();
}

} // namespace zeph::CustomAPI
