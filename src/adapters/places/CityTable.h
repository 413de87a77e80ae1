// SPDX-License-Identifier: MIT
#pragma once

#include "base/Coordinate.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

namespace zeph {

/// A city of the table, seen from somewhere.
struct NearbyCity {
    double kilometers = 0;
    QString name;
    QString area;    ///< the state or province; empty where the table has none
    QString country; ///< in English; may be empty
};

/// Some thousand cities in about 60 bytes each.
class CityTable {
public:
    CityTable() = default;

    /// A line a city, and tabs between latitude, longitude, name, area and country.
    /// Damaged lines are passed over.
    explicit CityTable(QByteArray text);

    bool isEmpty() const { return m_places.empty(); }

    /// Absent only in an empty table.
    std::optional<NearbyCity> nearest(const Coordinate &position) const;

private:
    /// Where the line of a city begins, and its direction from the middle of the Earth.
    struct Place {
        float x = 0;
        float y = 0;
        float z = 0;
        int line = 0;
    };

    void add(int line, QByteArrayView text);

    QByteArray m_text;
    std::vector<Place> m_places;
};

} // namespace zeph
