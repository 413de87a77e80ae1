// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <vector>

namespace zeph {

/// What a display tells of itself, and the connector it hangs on ("DP-1").
struct ScreenFacts {
    QString manufacturer;
    QString model;
    QString serialNumber;
    QString connector;

    bool operator==(const ScreenFacts &) const = default;
};

/// One identity a display, in the same order: the display's own words where it has a model or a
/// serial number, else its connector. " @" and the connector follow the words of a display without
/// a serial number, whatever else is plugged, and those that several displays say of themselves.
std::vector<QString> screenIdentities(const std::vector<ScreenFacts> &screens);

/// What people call the displays, in the same order: the model, which most makers begin with their
/// own name, else the letters of the maker and the connector, else the connector. The connector
/// follows in brackets where several displays would have one name.
std::vector<QString> screenNames(const std::vector<ScreenFacts> &screens);

/// A number for the connector that is the same in every session. Never 0.
quint32 connectorNumber(const QString &connector);

} // namespace zeph
