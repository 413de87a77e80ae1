// SPDX-License-Identifier: MIT
#include "adapters/places/CityTable.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

constexpr double earthRadiusKilometers = 6'371.0088;

enum Field { latitude, longitude, name, area, country, fieldCount };
using Fields = std::array<QByteArrayView, fieldCount>;

std::optional<Fields> fieldsOf(QByteArrayView line) {
    Fields fields;
    for (std::size_t index = 0; index < fields.size(); ++index) {
        const qsizetype tab = line.indexOf('\t');
        if ((tab < 0) != (index + 1 == fields.size())) {
            return std::nullopt;
        }
        fields.at(index) = tab < 0 ? line : line.first(tab);
        line = line.sliced(tab < 0 ? line.size() : tab + 1);
    }
    return fields;
}

std::optional<double> angle(QByteArrayView text, double limit) {
    bool isNumber = false;
    const double value = text.toDouble(&isNumber);
    return isNumber && std::abs(value) <= limit ? std::optional(value) : std::nullopt;
}

std::array<float, 3> directionOf(const Coordinate &position) {
    constexpr double radians = std::numbers::pi / 180.0;
    const double north = position.latitude * radians;
    const double east = position.longitude * radians;
    return {static_cast<float>(std::cos(north) * std::cos(east)),
            static_cast<float>(std::cos(north) * std::sin(east)),
            static_cast<float>(std::sin(north))};
}

/// A country as it is called now, in the order of speech: the library keeps some names that were
/// given up, and lists a few by their chief word.
QString countryName(QByteArrayView listed) {
    struct Renaming {
        const char *formerly;
        const char *now;
    };
    static constexpr Renaming renamings[] = {{"Czech Republic", "Czechia"},
                                             {"Falkland Islands (Malvinas)", "Falkland Islands"},
                                             {"Macedonia", "North Macedonia"},
                                             {"Swaziland", "Eswatini"},
                                             {"Viet Nam", "Vietnam"}};
    for (const Renaming &renaming : renamings) {
        if (listed == renaming.formerly) {
            return QString::fromLatin1(renaming.now);
        }
    }
    const QString text = QString::fromUtf8(listed);
    const qsizetype comma = text.indexOf(u", "_s);
    return comma < 0 ? text : text.mid(comma + 2) + u' ' + text.first(comma);
}

} // namespace

CityTable::CityTable(QByteArray text) : m_text(std::move(text)) {
    // Offsets are kept as int.
    m_text.truncate(std::min<qsizetype>(m_text.size(), std::numeric_limits<int>::max()));
    const QByteArrayView all(m_text);
    m_places.reserve(static_cast<std::size_t>(all.count('\n')));
    for (qsizetype begin = 0; begin < all.size();) {
        const qsizetype end = all.indexOf('\n', begin);
        const qsizetype length = (end < 0 ? all.size() : end) - begin;
        add(static_cast<int>(begin), all.sliced(begin, length));
        begin += length + 1;
    }
}

void CityTable::add(int line, QByteArrayView text) {
    const auto fields = fieldsOf(text);
    if (!fields || fields->at(name).isEmpty()) {
        return;
    }
    const auto north = angle(fields->at(latitude), 90);
    const auto east = angle(fields->at(longitude), 180);
    if (north && east) {
        const auto [x, y, z] = directionOf({*north, *east});
        m_places.push_back({x, y, z, line});
    }
}

std::optional<NearbyCity> CityTable::nearest(const Coordinate &position) const {
    const auto [x, y, z] = directionOf(position);
    const Place *found = nullptr;
    float least = std::numeric_limits<float>::max();
    for (const Place &place : m_places) {
        const float across = place.x - x;
        const float along = place.y - y;
        const float up = place.z - z;
        const float chord = across * across + along * along + up * up;
        if (found == nullptr || chord < least) {
            found = &place;
            least = chord;
        }
    }
    if (found == nullptr) {
        return std::nullopt;
    }
    QByteArrayView line = QByteArrayView(m_text).sliced(found->line);
    const qsizetype end = line.indexOf('\n');
    const Fields fields = fieldsOf(end < 0 ? line : line.first(end)).value();
    const double half = std::min(1.0, std::sqrt(static_cast<double>(least)) / 2);
    return NearbyCity{2 * earthRadiusKilometers * std::asin(half),
                      QString::fromUtf8(fields.at(name)), QString::fromUtf8(fields.at(area)),
                      countryName(fields.at(country))};
}

} // namespace zeph
