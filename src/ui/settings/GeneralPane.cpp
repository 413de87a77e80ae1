// SPDX-License-Identifier: MIT
#include "ui/settings/GeneralPane.h"

#include "ui/controls/PaneHeader.h"
#include "ui/settings/BackgroundCard.h"
#include "ui/settings/BehaviorCard.h"
#include "ui/settings/DesktopWallpaperCard.h"
#include "ui/settings/DesktopsCard.h"
#include "ui/settings/DisplaysCard.h"
#include "ui/settings/EventCountdownsCard.h"
#include "ui/settings/NumberFormatCard.h"
#include "ui/settings/PaneMeasures.h"
#include "ui/settings/SettingsFileCard.h"
#include "ui/settings/UnitsCard.h"

namespace zeph::ui {

using namespace Qt::StringLiterals;

GeneralPane::GeneralPane(const SettingsContext &context, const QString &desktopFolder,
                         const Background &files, QWidget *parent)
    : Pane(parent) {
    add(new PaneHeader(u"General"_s, u"App behavior and appearance."_s), 0);
    addCard(new BehaviorCard(context, desktopFolder));
    addCard(new BackgroundCard(context));
    if (context.desktopWallpaper != nullptr) {
        addCard(new DesktopWallpaperCard(context, *context.desktopWallpaper));
    }
    addCard(new UnitsCard(context));
    addCard(new DisplaysCard(context));
    addCard(new DesktopsCard(context));
    addCard(new EventCountdownsCard(context));
    addCard(new NumberFormatCard(context));
    addCard(new SettingsFileCard(context, files));
}

template <typename Kind>
void GeneralPane::addCard(Kind *card) {
    add(card, m_entries.empty() ? belowHeader : betweenCards);
    m_entries.push_back([card] { return card->searchEntries(); });
}

std::vector<SearchEntry> GeneralPane::searchEntries() {
    std::vector<SearchEntry> all;
    for (const auto &entriesOfCard : m_entries) {
        const std::vector<SearchEntry> entries = entriesOfCard();
        all.insert(all.end(), entries.begin(), entries.end());
    }
    return all;
}

} // namespace zeph::ui
