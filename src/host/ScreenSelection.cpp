// SPDX-License-Identifier: MIT
#include "host/ScreenSelection.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace zeph {

std::vector<Screen> selectedScreens(const DisplaySelection &selection, const Screens &screens) {
    std::vector<Screen> all = screens.all();
    const auto *one = std::get_if<OneScreen>(&selection);
    if (!one) {
        return all;
    }
    const auto chosen = std::find_if(all.begin(), all.end(), [one](const Screen &screen) {
        return screen.persistentID == one->identity;
    });
    if (chosen != all.end()) {
        return {*chosen};
    }
    if (const auto main = screens.main()) {
        return {*main};
    }
    return all;
}

QString builtIdentity(const Screen &screen) {
    if (screen.persistentID) {
        return *screen.persistentID;
    }
    return screen.displayID ? QString::number(*screen.displayID) : u"main"_s;
}

} // namespace zeph
