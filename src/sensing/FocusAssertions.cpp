// SPDX-License-Identifier: MIT
#include "sensing/FocusAssertions.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

/// The value as a list of objects; empty for everything else.
QJsonArray objectsIn(const QJsonValue &value) {
    const QJsonArray list = value.toArray();
    const bool isListOfObjects =
        std::all_of(list.begin(), list.end(), [](const auto &item) { return item.isObject(); });
    return isListOfObjects ? list : QJsonArray();
}

} // namespace

FocusState focusStateIn(const QByteArray &assertions) {
    const QJsonDocument document = QJsonDocument::fromJson(assertions);
    if (!document.isObject()) {
        return FocusState::unknown;
    }
    const QJsonArray data = objectsIn(document.object().value("data"_L1));
    // An entry that is missing reads as an object without records.
    const QJsonArray records = objectsIn(data.at(0).toObject().value("storeAssertionRecords"_L1));
    return records.isEmpty() ? FocusState::off : FocusState::on;
}

} // namespace zeph
