// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/RootPixmapTarget.h"

#include <QByteArray>

#include <xcb/damage.h>

#include <cstdint>
#include <optional>
#include <vector>

namespace zeph {

class X11Connection;

/// What stands on the root window while we paint into a desktop program's picture, for whoever has
/// to mend it after this program was killed.
struct EarlierPictureRecord {
    xcb_pixmap_t kept = XCB_PIXMAP_NONE; ///< the picture as it was without us
    xcb_damage_damage_t mark = XCB_NONE; ///< lives as long as the pixmap that we paint into; none
                                         ///< in what early versions wrote
    RootPixmapTarget target = {};        ///< that pixmap
    std::uint32_t machine = 0;           ///< on which that run was; 0 where nobody wrote it

    bool operator==(const EarlierPictureRecord &) const = default;
};

/// The record as the numbers of a property, and back; absent for what no record of ours can be.
std::vector<std::uint32_t> numbersOf(const EarlierPictureRecord &record);
std::optional<EarlierPictureRecord> recordIn(const std::vector<std::uint32_t> &numbers);

/// A number for the machine with this id, which does not tell the id; 0 for one without.
std::uint32_t machineNumber(const QByteArray &id);

/// Whether a run of `here` left this, on a display that is at this machine or not. What nobody
/// wrote the machine into is of the one with the display.
bool isLeftHere(const EarlierPictureRecord &record, std::uint32_t here, bool isDisplayHere);

/// The record that stands on the root; one round trip.
std::optional<EarlierPictureRecord> readRecord(X11Connection &connection);

/// Writes it there, or takes it away.
void writeRecord(X11Connection &connection, const std::optional<EarlierPictureRecord> &record);

} // namespace zeph
