// SPDX-License-Identifier: MIT
#include "adapters/places/PlaceLine.h"

#include <QByteArrayList>

namespace zeph {

namespace {

using Field = std::optional<QString> Placemark::*;

constexpr Field kFields[] = {&Placemark::locality, &Placemark::administrativeArea,
                             &Placemark::country, &Placemark::ocean, &Placemark::inlandWater};

} // namespace

QByteArray positionLine(const Coordinate &position) {
    return QByteArray::number(position.latitude, 'g', 17) + '\t' +
           QByteArray::number(position.longitude, 'g', 17) + '\n';
}

std::optional<Coordinate> positionIn(const QByteArray &line) {
    const QByteArrayList numbers = line.trimmed().split('\t');
    bool isNorth = false;
    bool isEast = false;
    const Coordinate position{numbers.first().toDouble(&isNorth), numbers.last().toDouble(&isEast)};
    return numbers.size() == 2 && isNorth && isEast ? std::optional(position) : std::nullopt;
}

QByteArray placeLine(const std::vector<Placemark> &places) {
    QByteArrayList values;
    for (const Field field : kFields) {
        values.append(places.empty() ? QByteArray()
                                     : (places.front().*field).value_or(QString()).toUtf8());
    }
    return (places.empty() ? QByteArray() : values.join('\t')) + '\n';
}

std::vector<Placemark> placesIn(const QByteArray &line) {
    const QByteArrayList values = line.split('\t');
    if (values.size() != std::ssize(kFields)) {
        return {};
    }
    Placemark place;
    for (qsizetype index = 0; index < values.size(); ++index) {
        if (!values.at(index).isEmpty()) {
            place.*kFields[index] = QString::fromUtf8(values.at(index));
        }
    }
    return place == Placemark{} ? std::vector<Placemark>() : std::vector{place};
}

} // namespace zeph
