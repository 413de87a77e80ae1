// SPDX-License-Identifier: MIT
#pragma once

#include "ports/VirtualDesktops.h"

#include <map>

namespace zeph {

/// A workspace that people can choose.
struct DesktopSpace {
    quint64 id = 0;
    int index = 1;          ///< its number on its display, from 1 on, of those that can be chosen
    QString displayID = {}; ///< `ManagedDisplay::identifier`
    QString name = {};      ///< empty where the desktop gives none
    bool isCurrent = false; ///< on its display

    bool operator==(const DesktopSpace &) const = default;
};

/// All workspaces as they are at one moment.
struct SpaceSnapshot {
    std::vector<DesktopSpace> desktops;
    std::vector<quint64> everySpaceID; ///< also of those that can't be chosen
    std::map<QString, quint64> activeByDisplay;

    bool operator==(const SpaceSnapshot &) const = default;
};

SpaceSnapshot snapshotOf(const std::vector<ManagedDisplay> &displays);

/// The workspaces of that display; all there are when they are listed under another name, as they
/// are where displays share them.
std::vector<DesktopSpace> desktopsOn(const std::optional<QString> &display,
                                     const SpaceSnapshot &snapshot);

/// The workspace that is shown on that display, any display's when it is not listed.
std::optional<quint64> activeSpaceOn(const std::optional<QString> &display,
                                     const SpaceSnapshot &snapshot);

} // namespace zeph
