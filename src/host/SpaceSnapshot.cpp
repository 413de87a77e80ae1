// SPDX-License-Identifier: MIT
#include "host/SpaceSnapshot.h"

#include <algorithm>
#include <iterator>

namespace zeph {

SpaceSnapshot snapshotOf(const std::vector<ManagedDisplay> &displays) {
    SpaceSnapshot snapshot;
    for (const ManagedDisplay &display : displays) {
        if (display.currentSpace) {
            snapshot.activeByDisplay[display.identifier] = *display.currentSpace;
        }
        int index = 0;
        for (const ManagedSpace &space : display.spaces) {
            snapshot.everySpaceID.push_back(space.id);
            if (space.isRegular) {
                snapshot.desktops.push_back({.id = space.id,
                                             .index = ++index,
                                             .displayID = display.identifier,
                                             .name = space.name,
                                             .isCurrent = space.id == display.currentSpace});
            }
        }
    }
    return snapshot;
}

std::vector<DesktopSpace> desktopsOn(const std::optional<QString> &display,
                                     const SpaceSnapshot &snapshot) {
    std::vector<DesktopSpace> own;
    std::copy_if(snapshot.desktops.begin(), snapshot.desktops.end(), std::back_inserter(own),
                 [&](const DesktopSpace &desktop) { return desktop.displayID == display; });
    return own.empty() ? snapshot.desktops : own;
}

std::optional<quint64> activeSpaceOn(const std::optional<QString> &display,
                                     const SpaceSnapshot &snapshot) {
    const auto &active = snapshot.activeByDisplay;
    auto found = display ? active.find(*display) : active.end();
    if (found == active.end()) {
        found = active.begin();
    }
    return found == active.end() ? std::nullopt : std::optional(found->second);
}

} // namespace zeph
