// SPDX-License-Identifier: MIT
#include "adapters/places/ZoneTable.h"

#include <algorithm>

namespace zeph {

namespace {

bool isSign(char character) {
    return character == '+' || character == '-';
}

/// Degrees in `text`: a sign, `degreeDigits` digits, and none, two or four more for minutes and
/// seconds.
std::optional<double> parseAngle(QByteArrayView text, qsizetype degreeDigits) {
    const qsizetype digits = text.size() - 1;
    const qsizetype finer = digits - degreeDigits;
    if (finer != 0 && finer != 2 && finer != 4) {
        return std::nullopt;
    }
    const QByteArrayView number = text.sliced(1);
    if (!isSign(text.front()) || !std::all_of(number.begin(), number.end(), [](char digit) {
            return digit >= '0' && digit <= '9';
        })) {
        return std::nullopt;
    }
    const int degrees = number.first(degreeDigits).toInt();
    const int minutes = finer >= 2 ? number.sliced(degreeDigits, 2).toInt() : 0;
    const int seconds = finer == 4 ? number.sliced(degreeDigits + 2, 2).toInt() : 0;
    if (minutes >= 60 || seconds >= 60) {
        return std::nullopt;
    }
    const double angle = degrees + minutes / 60.0 + seconds / 3600.0;
    return text.front() == '-' ? -angle : angle;
}

/// The next of the fields that `line` still holds; takes it off.
QByteArrayView takeField(QByteArrayView &line) {
    const qsizetype tab = line.indexOf('\t');
    const QByteArrayView field = tab < 0 ? line : line.first(tab);
    line = tab < 0 ? QByteArrayView() : line.sliced(tab + 1);
    return field;
}

} // namespace

std::optional<Coordinate> parseTablePosition(QByteArrayView text) {
    const auto second =
        std::find_if(text.begin() + std::min<qsizetype>(1, text.size()), text.end(), isSign);
    const qsizetype split = second - text.begin();
    if (split < 2 || split == text.size()) {
        return std::nullopt;
    }
    const auto latitude = parseAngle(text.first(split), 2);
    const auto longitude = parseAngle(text.sliced(split), 3);
    // Both are written equally finely; a longitude has one digit more.
    if (!latitude || !longitude || text.size() != 2 * split + 1 || *latitude < -90 ||
        *latitude > 90 || *longitude < -180 || *longitude > 180) {
        return std::nullopt;
    }
    return Coordinate{*latitude, *longitude};
}

std::optional<Coordinate> principalCity(QByteArrayView table, QByteArrayView zone) {
    while (!table.isEmpty() && !zone.isEmpty()) {
        const qsizetype end = table.indexOf('\n');
        QByteArrayView line = end < 0 ? table : table.first(end);
        table = end < 0 ? QByteArrayView() : table.sliced(end + 1);
        if (line.startsWith('#')) {
            continue;
        }
        takeField(line); // the countries
        const QByteArrayView position = takeField(line);
        if (takeField(line) == zone) {
            if (const auto city = parseTablePosition(position)) {
                return city;
            }
        }
    }
    return std::nullopt;
}

} // namespace zeph
