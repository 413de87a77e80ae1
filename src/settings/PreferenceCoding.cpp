// SPDX-License-Identifier: MIT
#include "settings/PreferenceCoding.h"

#include "base/UuidText.h"
#include "base/WholeNumber.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace zeph::coding {

namespace {

template <typename Case>
struct RawText {
    Case value;
    QLatin1StringView text;
};
template <typename Case>
RawText(Case, QLatin1StringView) -> RawText<Case>; // clang 14 can't deduce it from an aggregate

constexpr std::array layoutModes = {RawText{WidgetLayoutMode::automatic, "auto"_L1},
                                    RawText{WidgetLayoutMode::manual, "manual"_L1}};
constexpr std::array backgroundModes = {RawText{BackgroundMode::solid, "solid"_L1},
                                        RawText{BackgroundMode::automatic, "auto"_L1},
                                        RawText{BackgroundMode::transparent, "transparent"_L1}};
constexpr std::array unitSystems = {RawText{UnitSystem::metric, "metric"_L1},
                                    RawText{UnitSystem::imperial, "imperial"_L1}};
constexpr std::array widgetPlacements = {RawText{WidgetPlacement::off, "off"_L1},
                                         RawText{WidgetPlacement::always, "always"_L1}};
constexpr std::array widgetSizes = {RawText{WidgetSizeOption::small, "small"_L1},
                                    RawText{WidgetSizeOption::medium, "medium"_L1},
                                    RawText{WidgetSizeOption::large, "large"_L1}};
constexpr std::array recurrences = {RawText{CountdownRecurrence::none, "none"_L1},
                                    RawText{CountdownRecurrence::weekly, "weekly"_L1},
                                    RawText{CountdownRecurrence::monthly, "monthly"_L1},
                                    RawText{CountdownRecurrence::yearly, "yearly"_L1}};

template <typename Case, std::size_t count>
QString rawIn(const std::array<RawText<Case>, count> &cases, Case value) {
    const auto found = std::find_if(cases.begin(), cases.end(),
                                    [value](const auto &entry) { return entry.value == value; });
    return found == cases.end() ? QString() : QString(found->text);
}

template <typename Case, std::size_t count>
std::optional<Case> caseIn(const std::array<RawText<Case>, count> &cases, const QString &text) {
    const auto found = std::find_if(cases.begin(), cases.end(),
                                    [&text](const auto &entry) { return entry.text == text; });
    return found == cases.end() ? std::nullopt : std::optional(found->value);
}

template <typename Case, std::size_t count>
QByteArray mapToJson(const std::array<RawText<Case>, count> &cases,
                     const std::map<QString, Case> &values) {
    QJsonObject object;
    for (const auto &[key, value] : values) {
        object.insert(key, rawIn(cases, value));
    }
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

template <typename Case, std::size_t count>
std::optional<std::map<QString, Case>> mapFromJson(const std::array<RawText<Case>, count> &cases,
                                                   const QByteArray &json) {
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isObject()) {
        return std::nullopt;
    }
    const QJsonObject object = document.object();
    std::map<QString, Case> values;
    for (auto entry = object.begin(); entry != object.end(); ++entry) {
        const auto value = entry.value().isString() ? caseIn(cases, entry.value().toString())
                                                    : std::optional<Case>();
        if (!value) {
            return std::nullopt;
        }
        values.emplace(entry.key(), *value);
    }
    return values;
}

/// A number that a workspace can have.
std::optional<int> desktopNumber(const QString &piece) {
    const auto number = wholeNumber(piece);
    const bool fits = number && *number >= std::numeric_limits<int>::min() &&
                      *number <= std::numeric_limits<int>::max();
    return fits ? std::optional(static_cast<int>(*number)) : std::nullopt;
}

bool isMissing(const QJsonValue &value) {
    return value.isUndefined() || value.isNull();
}

std::optional<CountdownEvent> countdown(const QJsonValue &json) {
    const QJsonValue id = json["id"_L1];
    const QJsonValue title = json["title"_L1];
    const QJsonValue date = json["date"_L1];
    const QJsonValue recurrence = json["recurrence"_L1];
    const auto knownId = isMissing(id) ? QUuid::createUuid() : uuidFromText(id.toString());
    const auto knownRecurrence = isMissing(recurrence) ? CountdownRecurrence::none
                                                       : caseIn(recurrences, recurrence.toString());
    if (!title.isString() || !date.isDouble() || !knownId || !knownRecurrence) {
        return std::nullopt;
    }
    return CountdownEvent{*knownId, title.toString(),
                          Date{date.toDouble() + referenceDateSince1970}, *knownRecurrence};
}

} // namespace

QString raw(WidgetLayoutMode mode) {
    return rawIn(layoutModes, mode);
}
QString raw(BackgroundMode mode) {
    return rawIn(backgroundModes, mode);
}
QString raw(UnitSystem system) {
    return rawIn(unitSystems, system);
}
QString raw(CountdownRecurrence recurrence) {
    return rawIn(recurrences, recurrence);
}

std::optional<WidgetLayoutMode> layoutMode(const QString &raw) {
    return caseIn(layoutModes, raw);
}
std::optional<BackgroundMode> backgroundMode(const QString &raw) {
    return caseIn(backgroundModes, raw);
}
std::optional<UnitSystem> unitSystem(const QString &raw) {
    return caseIn(unitSystems, raw);
}

QString text(const DisplaySelection &selection) {
    const auto *screen = std::get_if<OneScreen>(&selection);
    return screen != nullptr ? screen->identity : u"all"_s;
}

DisplaySelection displaySelection(const QString &text) {
    return text == "all"_L1 ? DisplaySelection(AllDisplays{}) : DisplaySelection(OneScreen{text});
}

QString text(const DesktopSelection &selection) {
    const auto *desktops = std::get_if<SomeDesktops>(&selection);
    if (desktops == nullptr) {
        return u"all"_s;
    }
    QStringList pieces;
    for (const int number : desktops->numbers) {
        pieces.append(QString::number(number));
    }
    return pieces.join(u',');
}

DesktopSelection desktopSelection(const QString &text) {
    SomeDesktops desktops;
    for (const QString &piece : text.split(u',', Qt::SkipEmptyParts)) {
        if (const auto number = desktopNumber(piece)) {
            desktops.numbers.insert(*number);
        }
    }
    return desktops.numbers.empty() ? DesktopSelection(AllDesktops{}) : DesktopSelection(desktops);
}

QByteArray json(const std::map<QString, WidgetPlacement> &placements) {
    return mapToJson(widgetPlacements, placements);
}

QByteArray json(const std::map<QString, WidgetSizeOption> &sizes) {
    return mapToJson(widgetSizes, sizes);
}

QByteArray json(const QStringList &texts) {
    return QJsonDocument(QJsonArray::fromStringList(texts)).toJson(QJsonDocument::Compact);
}

std::optional<std::map<QString, WidgetPlacement>> placements(const QByteArray &json) {
    return mapFromJson(widgetPlacements, json);
}

std::optional<std::map<QString, WidgetSizeOption>> sizes(const QByteArray &json) {
    return mapFromJson(widgetSizes, json);
}

std::optional<QStringList> texts(const QByteArray &json) {
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isArray()) {
        return std::nullopt;
    }
    QStringList texts;
    for (const QJsonValue element : document.array()) {
        if (!element.isString()) {
            return std::nullopt;
        }
        texts.append(element.toString());
    }
    return texts;
}

std::optional<QByteArray> json(const std::vector<CountdownEvent> &countdowns) {
    QJsonArray array;
    for (const CountdownEvent &event : countdowns) {
        if (!std::isfinite(event.date.secondsSince1970)) {
            return std::nullopt;
        }
        array.append(QJsonObject{
            {u"id"_s, uuidText(event.id)},
            {u"title"_s, event.title},
            {u"date"_s, event.date.secondsSince1970 - referenceDateSince1970},
            {u"recurrence"_s, rawIn(recurrences, event.recurrence)},
        });
    }
    return QJsonDocument(array).toJson(QJsonDocument::Compact);
}

std::optional<std::vector<CountdownEvent>> countdowns(const QByteArray &json) {
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isArray()) {
        return std::nullopt;
    }
    std::vector<CountdownEvent> events;
    for (const QJsonValue element : document.array()) {
        const auto event = countdown(element);
        if (!event) {
            return std::nullopt;
        }
        events.push_back(*event);
    }
    return events;
}

} // namespace zeph::coding
