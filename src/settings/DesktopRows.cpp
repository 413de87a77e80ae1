// SPDX-License-Identifier: MIT
#include "settings/DesktopRows.h"

#include "settings/PreferencesStore.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// The chosen numbers; none of them where all are chosen.
std::set<int> chosenNumbers(const DesktopSelection &selection) {
    const auto *some = std::get_if<SomeDesktops>(&selection);
    return some ? some->numbers : std::set<int>();
}

} // namespace

std::vector<DesktopRow> desktopRows(const DesktopSelection &selection,
                                    const std::vector<VirtualDesktop> &desktops) {
    if (desktops.size() < 2) {
        return {};
    }
    const std::set<int> chosen = chosenNumbers(selection);
    std::vector<DesktopRow> rows{
        {std::nullopt, u"All desktops"_s, u"%1 desktops"_s.arg(desktops.size()), chosen.empty()}};
    for (const VirtualDesktop &desktop : desktops) {
        rows.push_back({desktop.number, u"Desktop %1"_s.arg(desktop.number),
                        desktop.isCurrent ? u"current"_s : QString(),
                        chosen.count(desktop.number) > 0});
    }
    return rows;
}

DesktopSelection toggled(const DesktopSelection &selection, int number) {
    std::set<int> chosen = chosenNumbers(selection);
    if (chosen.count(number) == 0) {
        chosen.insert(number);
    } else if (chosen.size() > 1) {
        chosen.erase(number);
    }
    return SomeDesktops{chosen};
}

void toggleDesktop(int number, PreferencesStore &preferences) {
    const DesktopSelection next = toggled(preferences.desktopSelection(), number);
    if (next != preferences.desktopSelection()) {
        preferences.setDesktopSelection(next);
    }
}

} // namespace zeph
