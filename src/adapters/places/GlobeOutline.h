// SPDX-License-Identifier: MIT
#pragma once

#include "base/Coordinate.h"

#include <QByteArrayView>
#include <QString>

#include <map>
#include <vector>

namespace zeph {

/// A part of the globe and its name, as a simple polygon on the map of straight meridians.
/// Longitudes may go on beyond 180 degrees.
struct GlobeOutline {
    QString name; ///< may be empty
    std::vector<Coordinate> corners;
};

/// What an outline is of.
enum class OutlineKind { ocean, sea, lake, land, country };

using GlobeOutlines = std::map<OutlineKind, std::vector<GlobeOutline>>;

/// Reads lines of a kind, a name and corners such as "40.3,27 41,29.2 41,28", with tabs between the
/// three. Comments and damaged lines are passed over.
GlobeOutlines parseOutlines(QByteArrayView text);

/// The first outline of a kind that holds `position`, null when none does.
const GlobeOutline *outlineAt(const GlobeOutlines &outlines, OutlineKind kind,
                              const Coordinate &position);

} // namespace zeph
