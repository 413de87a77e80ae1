// SPDX-License-Identifier: MIT
#include "services/transfer/SettingsFileReader.h"

#include "base/DescribedError.h"
#include "services/accounts/AccountCoding.h"
#include "services/web/Json.h"
#include "settings/PreferenceCoding.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace zeph::SettingsFile {

namespace {

/// Empty for what is no JSON object.
QJsonObject fileIn(const QByteArray &bytes) {
    if (bytes.size() > mostBytes) {
        return {};
    }
    try {
        return json::parse(bytes).toObject();
    } catch (const DescribedError &) {
        return {};
    }
}

/// Reads the parts of a file one after the other, and remembers the first that it can't.
class PartReader {
public:
    explicit PartReader(QJsonObject parts) : m_parts(std::move(parts)) {}

    /// What `decode` makes of a part; what is missing is no fault.
    template <typename Value, typename Decode>
    void part(const QString &name, std::optional<Value> &into, Decode decode) {
        const QJsonValue found = m_parts.value(name);
        if (found.isUndefined()) {
            return;
        }
        into = decode(found);
        if (!into && m_fault.isEmpty()) {
            m_fault = name;
        }
    }

    const QString &fault() const { return m_fault; }

private:
    QJsonObject m_parts;
    QString m_fault;
};

std::optional<QString> text(const QJsonValue &json) {
    return json.isString() ? std::optional(json.toString()) : std::nullopt;
}

std::optional<bool> truth(const QJsonValue &json) {
    return json.isBool() ? std::optional(json.toBool()) : std::nullopt;
}

/// A number, brought between 0 and 1.
std::optional<double> share(const QJsonValue &json) {
    return json.isDouble() ? std::optional(std::clamp(json.toDouble(), 0.0, 1.0)) : std::nullopt;
}

/// Reads a text by `decode`.
template <typename Decode>
auto ofText(Decode decode) {
    return [decode](const QJsonValue &json) {
        const auto read = text(json);
        return read ? std::optional(decode(*read)) : std::nullopt;
    };
}

/// The same where `decode` may find no meaning in the text.
template <typename Decode>
auto ofKnownText(Decode decode) {
    return [decode](const QJsonValue &json) { return decode(json.toString()); };
}

/// Reads an object or an array by `decode`, which takes it as bytes.
template <typename Decode>
auto ofBytes(Decode decode) {
    return [decode](const QJsonValue &json) -> decltype(decode(QByteArray())) {
        if (!json.isArray() && !json.isObject()) {
            return std::nullopt;
        }
        const QJsonDocument document =
            json.isArray() ? QJsonDocument(json.toArray()) : QJsonDocument(json.toObject());
        return decode(document.toJson(QJsonDocument::Compact));
    };
}

QString readPreferences(const QJsonObject &parts, TransferredPreferences &into) {
    PartReader reader(parts);
    reader.part(u"placements"_s, into.placements, ofBytes(coding::placements));
    reader.part(u"sizes"_s, into.sizes, ofBytes(coding::sizes));
    reader.part(u"layoutMode"_s, into.layoutMode, ofKnownText(coding::layoutMode));
    reader.part(u"customOrder"_s, into.customOrder, ofBytes(coding::texts));
    reader.part(u"backgroundMode"_s, into.backgroundMode, ofKnownText(coding::backgroundMode));
    reader.part(u"backgroundHex"_s, into.backgroundHex, text);
    reader.part(u"transparentDim"_s, into.transparentDim, share);
    reader.part(u"systemNumberFormat"_s, into.useSystemNumberFormat, truth);
    reader.part(u"units"_s, into.unitSystem, ofKnownText(coding::unitSystem));
    reader.part(u"clock24h"_s, into.use24HourClock, truth);
    reader.part(u"displays"_s, into.displaySelection, ofText(coding::displaySelection));
    reader.part(u"desktops"_s, into.desktopSelection, ofText(coding::desktopSelection));
    reader.part(u"countdowns"_s, into.countdowns, ofBytes(coding::countdowns));
    return reader.fault();
}

/// The name of the part that can't be read, empty when all can.
QString readParts(const QJsonObject &file, TransferredSettings &into) {
    std::optional<QJsonObject> preferences;
    std::optional<std::vector<IntegrationConnection>> accounts;
    std::optional<std::vector<CustomAPIConfig>> endpoints;
    PartReader reader(file);
    reader.part(u"preferences"_s, preferences, [](const QJsonValue &json) {
        return json.isObject() ? std::optional(json.toObject()) : std::nullopt;
    });
    reader.part(u"accounts"_s, accounts, ofBytes(coding::connections));
    reader.part(u"endpoints"_s, endpoints, ofBytes(coding::customAPIs));
    reader.part(u"quoteEnabled"_s, into.quoteEnabled, truth);
    into.accounts = std::move(accounts).value_or(std::vector<IntegrationConnection>());
    for (const CustomAPIConfig &endpoint : endpoints.value_or(std::vector<CustomAPIConfig>())) {
        into.endpoints.push_back(withoutSecrets(endpoint)); // whoever wrote a value into the file
    }
    const QString fault = readPreferences(preferences.value_or(QJsonObject()), into.preferences);
    return reader.fault().isEmpty() ? fault : reader.fault();
}

} // namespace

std::variant<TransferredSettings, QString> read(const QByteArray &bytes) {
    const QJsonObject file = fileIn(bytes);
    if (file.value("format"_L1) != QJsonValue(formatName())) {
        return u"This is no settings file of Tavi. Nothing was changed."_s;
    }
    const qint64 found = file.value("version"_L1).toInteger(0);
    if (found > version) {
        return u"This file comes from a newer version of Tavi. Update Tavi to import it; nothing "
               "was changed."_s;
    }
    TransferredSettings settings;
    const QString fault = found < 1 ? u"version"_s : readParts(file, settings);
    if (!fault.isEmpty()) {
        return u"This file is damaged: its part “%1” can't be read. Nothing was changed."_s.arg(
            fault);
    }
    return settings;
}

} // namespace zeph::SettingsFile
