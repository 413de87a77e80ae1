// SPDX-License-Identifier: MIT
#include "host/DisplayRows.h"

#include "host/ScreenSelection.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

QString monitorCount(std::size_t count) {
    return count == 1 ? u"1 monitor"_s : u"%1 monitors"_s.arg(count);
}

QString displayTitle(const Screen &screen, std::size_t place) {
    return screen.name.isEmpty() ? u"Display %1"_s.arg(place + 1) : screen.name;
}

} // namespace

std::vector<DisplayRow> displayRows(const DisplaySelection &selection, const Screens &screens) {
    const std::vector<Screen> all = screens.all();
    const auto *one = std::get_if<OneScreen>(&selection);
    const auto chosen = one ? chosenScreen(*one, all) : std::nullopt;
    std::vector<DisplayRow> rows{
        {AllDisplays{}, u"All displays"_s, monitorCount(all.size()), one == nullptr}};
    for (std::size_t place = 0; place < all.size(); ++place) {
        const Screen &screen = all[place];
        const QSize size = screen.deviceFrame.size();
        rows.push_back({OneScreen{screen.persistentID.value_or(builtIdentity(screen))},
                        displayTitle(screen, place),
                        u"%1 × %2"_s.arg(size.width()).arg(size.height()), chosen == screen});
    }
    return rows;
}

} // namespace zeph
