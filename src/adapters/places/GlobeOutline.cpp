// SPDX-License-Identifier: MIT
#include "adapters/places/GlobeOutline.h"

#include <QByteArray>
#include <QByteArrayList>

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace zeph {

namespace {

/// Whether a way east from the position leaves the outline an odd number of times.
bool contains(const std::vector<Coordinate> &corners, double latitude, double longitude) {
    bool isInside = false;
    const Coordinate *last = &corners.back();
    for (const Coordinate &corner : corners) {
        if ((corner.latitude > latitude) != (last->latitude > latitude)) {
            const double share = (latitude - corner.latitude) / (last->latitude - corner.latitude);
            const double crossing = corner.longitude + share * (last->longitude - corner.longitude);
            isInside = isInside != (longitude < crossing);
        }
        last = &corner;
    }
    return isInside;
}

std::optional<OutlineKind> kindOf(const QByteArray &word) {
    static constexpr std::pair<const char *, OutlineKind> kinds[] = {
        {"ocean", OutlineKind::ocean},     {"sea", OutlineKind::sea},
        {"lake", OutlineKind::lake},       {"land", OutlineKind::land},
        {"country", OutlineKind::country},
    };
    for (const auto &[name, kind] : kinds) {
        if (word == name) {
            return kind;
        }
    }
    return std::nullopt;
}

/// None where one of them is damaged.
std::vector<Coordinate> cornersOf(const QByteArray &text) {
    std::vector<Coordinate> corners;
    for (const QByteArray &pair : text.split(' ')) {
        const qsizetype comma = pair.indexOf(',');
        bool isNorth = false;
        bool isEast = false;
        const Coordinate corner{pair.left(comma).toDouble(&isNorth),
                                pair.mid(comma + 1).toDouble(&isEast)};
        if (comma < 0 || !isNorth || !isEast || !(std::abs(corner.latitude) <= 90) ||
            !(std::abs(corner.longitude) <= 360)) {
            return {};
        }
        corners.push_back(corner);
    }
    return corners;
}

} // namespace

GlobeOutlines parseOutlines(QByteArrayView text) {
    GlobeOutlines outlines;
    for (const QByteArray &line : text.toByteArray().split('\n')) {
        const QByteArrayList fields = line.split('\t');
        const auto kind = kindOf(fields.first());
        if (!kind || fields.size() != 3) {
            continue;
        }
        GlobeOutline outline{QString::fromUtf8(fields.at(1)), cornersOf(fields.at(2))};
        if (outline.corners.size() >= 3) {
            outlines[*kind].push_back(std::move(outline));
        }
    }
    return outlines;
}

const GlobeOutline *outlineAt(const GlobeOutlines &outlines, OutlineKind kind,
                              const Coordinate &position) {
    const auto known = outlines.find(kind);
    if (known == outlines.end()) {
        return nullptr;
    }
    // Rounds the poles and the date line down, which belong to what lies before them.
    const double latitude = std::clamp(position.latitude, -89.999, 89.999);
    const double longitude = std::clamp(position.longitude, -179.999, 179.999);
    const auto found =
        std::find_if(known->second.begin(), known->second.end(), [&](const GlobeOutline &outline) {
            return contains(outline.corners, latitude, longitude) ||
                   contains(outline.corners, latitude, longitude + 360);
        });
    return found == known->second.end() ? nullptr : &*found;
}

} // namespace zeph
