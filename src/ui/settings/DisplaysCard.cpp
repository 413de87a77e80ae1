// SPDX-License-Identifier: MIT
#include "ui/settings/DisplaysCard.h"

#include "settings/PreferencesStore.h"
#include "ui/controls/Look.h"
#include "ui/controls/MarkRow.h"
#include "ui/controls/SettingRow.h"
#include "ui/settings/CardRows.h"
#include "ui/settings/CheckOnly.h"
#include "ui/settings/LiveRefresh.h"

#include <QButtonGroup>

namespace zeph::ui {

using namespace Qt::StringLiterals;

DisplaysCard::DisplaysCard(const SettingsContext &context, QWidget *parent)
    : Card(parent),
      m_context(context),
      m_list(new CardRows(CardRows::Lines::underTheText)),
      m_group(new QButtonGroup(this)),
      m_entry{u"Show Tavi on"_s,
              u"Pick a monitor, or show your wallpaper on every display at once."_s, m_list} {
    addRow(new SettingRow({u"display.2"_s, m_entry.title, m_entry.detail}, nullptr));
    addBody(m_list);
    m_list->setContentsMargins(0, 0, 0, scaled(8)); // the rows reach from edge to edge
    m_list->setAccessibleName(m_entry.title);
    connect(m_group, &QButtonGroup::idClicked, this, [this](int index) { choose(index); });
    refresh();
    auto *live = new LiveRefresh(*this, context.runLoop, [this] { refresh(); });
    live->follow(context.preferences.objectWillChange);
    live->follow(context.screens.subscribe(live->handler()));
}

void DisplaysCard::refresh() {
    m_rows = displayRows(m_context.preferences.displaySelection(), m_context.screens);
    const int count = static_cast<int>(m_rows.size());
    m_list->removeFrom(count);
    int chosen = -1;
    for (int index = 0; index < count; ++index) {
        if (index == m_list->count()) {
            makeRow(index);
        }
        const DisplayRow &row = m_rows[static_cast<std::size_t>(index)];
        auto *shown = static_cast<RadioRow *>(m_group->button(index));
        shown->setText(row.title);
        shown->setDetail(row.detail);
        chosen = row.isChosen ? index : chosen;
    }
    checkOnly(*m_group, chosen);
}

void DisplaysCard::makeRow(int index) {
    auto *row = new RadioRow({}, {});
    m_group->addButton(row, index);
    m_list->add(row);
}

void DisplaysCard::choose(int index) {
    m_context.preferences.setDisplaySelection(m_rows[static_cast<std::size_t>(index)].selection);
}

} // namespace zeph::ui
