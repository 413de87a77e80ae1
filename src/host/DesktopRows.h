// SPDX-License-Identifier: MIT
#pragma once

#include "host/SpaceSnapshot.h"
#include "settings/PreferenceChoices.h"

#include <optional>
#include <vector>

namespace zeph {

class PreferencesStore;

/// A row of the choice of workspaces.
struct DesktopRow {
    std::optional<int> number; ///< absent for the row of all
    QString title;
    QString detail; ///< how many there are, or the name of one and whether it is the current one
    bool isChosen = false;

    bool operator==(const DesktopRow &) const = default;
};

/// All of them first, then each number; none where there is no choice, with one workspace or
/// without any. Where displays have workspaces of their own, a number stands for that of each.
std::vector<DesktopRow> desktopRows(const DesktopSelection &selection,
                                    const std::vector<DesktopSpace> &desktops);

/// The choice after a click on a workspace. The last chosen one stays chosen; the first after
/// "all" is chosen alone.
DesktopSelection toggled(const DesktopSelection &selection, int number);

/// Stores that choice; a click that changes nothing is not told of.
void toggleDesktop(int number, PreferencesStore &preferences);

} // namespace zeph
