// SPDX-License-Identifier: MIT
#include "ui/settings/DisplayPane.h"

#include "model/AppState.h"
#include "services/accounts/IntegrationsStore.h"
#include "settings/PreferencesStore.h"
#include "ui/controls/Card.h"
#include "ui/controls/PaneHeader.h"
#include "ui/controls/SectionLabel.h"
#include "ui/settings/LiveRefresh.h"
#include "ui/settings/PaneMeasures.h"
#include "ui/settings/WidgetPlacementRow.h"

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int aboveLabel = 30;
constexpr int labelToCard = 12;

} // namespace

DisplayPane::DisplayPane(const SettingsContext &context, QWidget *parent) : Pane(parent) {
    add(new PaneHeader(u"Widgets"_s,
                       u"Choose which widgets show on your wallpaper, and their size."_s),
        0);
    for (const WidgetSection &section : settingsSections()) {
        addSection(section, context, m_rows.empty() ? belowHeader : aboveLabel);
    }
    auto *live = new LiveRefresh(*this, context.runLoop, [this] { refresh(); });
    live->follow(context.preferences.objectWillChange);
    live->follow(context.integrations.objectWillChange);
    live->follow(context.state.objectWillChange);
}

void DisplayPane::addSection(const WidgetSection &section, const SettingsContext &context,
                             int gap) {
    add(new SectionLabel(section.title, section.subtitle), gap);
    auto *card = new Card;
    card->setAccessibleName(section.title);
    for (const WidgetKind kind : section.kinds) {
        m_rows.push_back(new WidgetPlacementRow(kind, context));
        card->addRow(m_rows.back());
    }
    add(card, labelToCard);
}

void DisplayPane::refresh() {
    for (WidgetPlacementRow *row : m_rows) {
        row->refresh();
    }
}

std::vector<SearchEntry> DisplayPane::searchEntries() {
    std::vector<SearchEntry> entries;
    for (const WidgetPlacementRow *row : m_rows) {
        entries.push_back(row->searchEntry());
    }
    return entries;
}

} // namespace zeph::ui
