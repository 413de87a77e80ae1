// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Screens.h"
#include "settings/PreferenceChoices.h"

#include <vector>

namespace zeph {

/// A row of the choice of displays.
struct DisplayRow {
    DisplaySelection selection; ///< what a click chooses
    QString title;
    QString detail; ///< how many there are, or the size in device pixels
    bool isChosen = false;

    bool operator==(const DisplayRow &) const = default;
};

/// All displays first, then each. None is marked while the chosen one is unplugged.
std::vector<DisplayRow> displayRows(const DisplaySelection &selection, const Screens &screens);

} // namespace zeph
