// SPDX-License-Identifier: MIT
#include "host/ScreenSelection.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// Choices were once stored without the connector, which is the last part of some identities, and
/// with the whole name of the maker instead of the letters that come first. And of two displays
/// with one serial number the identities have a connector, which goes when one of them is
/// unplugged.
bool wasOnceStoredAs(const QString &stored, const Screen &screen) {
    const QString identity = screen.persistentID.value_or(QString());
    if (stored == identity + u" @"_s + screen.connector) {
        return true;
    }
    const auto connector = identity.lastIndexOf(u" @"_s);
    const auto model = identity.indexOf(u' ');
    return (connector >= 0 && identity.left(connector) == stored) ||
           (model >= 0 && model != connector && stored.endsWith(identity.mid(model)));
}

std::optional<Screen> formerlyChosen(const QString &stored, const std::vector<Screen> &all) {
    std::optional<Screen> chosen;
    for (const Screen &screen : all) {
        if (!wasOnceStoredAs(stored, screen)) {
            continue;
        }
        if (chosen) {
            return std::nullopt; // which one was meant can't be told
        }
        chosen = screen;
    }
    return chosen;
}

} // namespace

std::optional<Screen> chosenScreen(const OneScreen &choice, const std::vector<Screen> &all) {
    const auto chosen = std::find_if(all.begin(), all.end(), [&choice](const Screen &screen) {
        return screen.persistentID == choice.identity;
    });
    return chosen == all.end() ? formerlyChosen(choice.identity, all) : std::optional(*chosen);
}

std::vector<Screen> selectedScreens(const DisplaySelection &selection, const Screens &screens) {
    std::vector<Screen> all = screens.all();
    const auto *one = std::get_if<OneScreen>(&selection);
    if (!one) {
        return all;
    }
    if (const auto chosen = chosenScreen(*one, all)) {
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
