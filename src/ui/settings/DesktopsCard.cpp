// SPDX-License-Identifier: MIT
#include "ui/settings/DesktopsCard.h"

#include "settings/PreferencesStore.h"
#include "ui/controls/Look.h"
#include "ui/controls/MarkRow.h"
#include "ui/controls/SettingRow.h"
#include "ui/controls/TextLabel.h"
#include "ui/settings/CardRows.h"
#include "ui/settings/LiveRefresh.h"

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

QString onlyOneDesktop() {
    return u"You only have one desktop right now. Add more in your desktop's workspace settings "
           u"and they'll show up here."_s;
}

} // namespace

DesktopsCard::DesktopsCard(const SettingsContext &context, QWidget *parent)
    : Card(parent),
      m_context(context),
      m_onlyOne(new TextLabel(onlyOneDesktop(), TypeRole::detail, TextLabel::Ink::second)),
      m_list(new CardRows(CardRows::Lines::underTheText)),
      m_all(new RadioRow({}, {})),
      m_entry{u"Show Tavi on desktops"_s,
              u"Your workspaces — keep Tavi on every one, or pick the ones you want it on."_s,
              m_list} {
    addRow(new SettingRow({u"squares.below.rectangle"_s, m_entry.title, m_entry.detail}, nullptr));
    addBody(m_onlyOne);
    addBody(m_list);
    m_list->setContentsMargins(0, 0, 0, scaled(8)); // the rows reach from edge to edge
    m_list->setAccessibleName(m_entry.title);
    m_list->add(m_all);
    m_all->setAutoExclusive(false); // it goes out when a workspace is chosen
    connect(m_all, &QRadioButton::clicked, this, [this] { chooseAll(); });
    refresh();
    auto *live = new LiveRefresh(*this, context.runLoop, [this] { refresh(); });
    live->follow(context.preferences.objectWillChange);
    live->follow(context.virtualDesktops.subscribe(live->handler()));
}

void DesktopsCard::refresh() {
    m_rows =
        desktopRows(m_context.preferences.desktopSelection(), m_context.virtualDesktops.all());
    m_onlyOne->setVisible(m_rows.empty());
    m_list->setVisible(!m_rows.empty());
    const int count = static_cast<int>(m_rows.size());
    if (count == 0) {
        return;
    }
    m_list->removeFrom(count);
    m_all->setText(m_rows.front().title);
    m_all->setDetail(m_rows.front().detail);
    m_all->setChecked(m_rows.front().isChosen);
    for (int index = 1; index < count; ++index) {
        if (index == m_list->count()) {
            auto *made = new CheckRow({}, {});
            connect(made, &QCheckBox::clicked, this, [this, index] { toggle(index); });
            m_list->add(made);
        }
        const DesktopRow &row = m_rows[static_cast<std::size_t>(index)];
        auto *shown = static_cast<CheckRow *>(m_list->row(index));
        shown->setText(row.title);
        shown->setDetail(row.detail);
        shown->setChecked(row.isChosen);
    }
}

void DesktopsCard::chooseAll() {
    m_context.preferences.setDesktopSelection(AllDesktops{});
    refresh(); // the mark of what is chosen already stays
}

void DesktopsCard::toggle(int index) {
    if (const auto number = m_rows[static_cast<std::size_t>(index)].number) {
        m_context.preferences.setDesktopSelection(
            toggled(m_context.preferences.desktopSelection(), *number));
        refresh(); // the last one stays chosen, whatever its own click made of its mark
    }
}

} // namespace zeph::ui
