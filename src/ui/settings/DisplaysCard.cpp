// SPDX-License-Identifier: MIT
#include "ui/settings/DisplaysCard.h"

#include "settings/PreferencesStore.h"
#include "ui/controls/MarkRow.h"
#include "ui/controls/SettingRow.h"
#include "ui/settings/CheckOnly.h"
#include "ui/settings/LiveRefresh.h"
#include "ui/settings/TabOrder.h"

#include <QButtonGroup>

namespace zeph::ui {

using namespace Qt::StringLiterals;

DisplaysCard::DisplaysCard(const SettingsContext &context, QWidget *parent)
    : Card(parent),
      m_context(context),
      m_group(new QButtonGroup(this)),
      m_entry{u"Show Tavi on"_s,
              u"Pick a monitor, or show your wallpaper on every display at once."_s, this} {
    setAccessibleName(m_entry.title);
    addRow(new SettingRow({u"display.2"_s, m_entry.title, m_entry.detail}, nullptr));
    connect(m_group, &QButtonGroup::idClicked, this, [this](int index) { choose(index); });
    refresh();
    auto *live = new LiveRefresh(*this, context.runLoop, [this] { refresh(); });
    live->follow(context.preferences.objectWillChange);
    live->follow(context.screens.subscribe(live->handler()));
}

void DisplaysCard::refresh() {
    m_rows = displayRows(m_context.preferences.displaySelection(), m_context.screens);
    const int count = static_cast<int>(m_rows.size());
    while (static_cast<int>(m_shown.size()) > count) {
        m_group->removeButton(m_shown.back());
        m_shown.back()->hide();
        m_shown.back()->deleteLater();
        m_shown.pop_back();
    }
    int chosen = -1;
    for (int index = 0; index < count; ++index) {
        if (index == static_cast<int>(m_shown.size())) {
            makeRow(index);
        }
        const DisplayRow &row = m_rows[static_cast<std::size_t>(index)];
        RadioRow *shown = m_shown[static_cast<std::size_t>(index)];
        shown->setText(row.title);
        shown->setDetail(row.detail);
        chosen = row.isChosen ? index : chosen;
    }
    checkOnly(*m_group, chosen);
}

void DisplaysCard::makeRow(int index) {
    auto *row = new RadioRow({}, {});
    m_group->addButton(row, index);
    addRow(row);
    if (!m_shown.empty()) {
        visitAfter(*m_shown.back(), *row);
    }
    m_shown.push_back(row);
}

void DisplaysCard::choose(int index) {
    m_context.preferences.setDisplaySelection(m_rows[static_cast<std::size_t>(index)].selection);
}

} // namespace zeph::ui
