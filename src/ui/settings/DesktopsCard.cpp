// SPDX-License-Identifier: MIT
#include "ui/settings/DesktopsCard.h"

#include "settings/PreferencesStore.h"
#include "ui/controls/MarkRow.h"
#include "ui/controls/SettingRow.h"
#include "ui/controls/TextLabel.h"
#include "ui/settings/LiveRefresh.h"
#include "ui/settings/TabOrder.h"

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
      m_all(new RadioRow({}, {})),
      m_entry{u"Show Tavi on desktops"_s,
              u"Your workspaces — keep Tavi on every one, or pick the ones you want it on."_s,
              this} {
    setAccessibleName(m_entry.title);
    addRow(new SettingRow({u"squares.below.rectangle"_s, m_entry.title, m_entry.detail}, nullptr));
    addBody(m_onlyOne);
    addRow(m_all);
    m_all->setAutoExclusive(false); // it goes out when a workspace is chosen
    connect(m_all, &QRadioButton::clicked, this, [this] { chooseAll(); });
    refresh();
    auto *live = new LiveRefresh(*this, context.runLoop, [this] { refresh(); });
    live->follow(context.preferences.objectWillChange);
    live->follow(context.virtualDesktops.subscribe(live->handler()));
}

void DesktopsCard::refresh() {
    m_rows = desktopRows(m_context.preferences.desktopSelection(),
                         snapshotOf(m_context.virtualDesktops.managedDisplays()).desktops);
    m_onlyOne->setVisible(m_rows.empty());
    m_all->setVisible(!m_rows.empty());
    const std::size_t count = m_rows.empty() ? 0 : m_rows.size() - 1;
    while (m_shown.size() > count) {
        m_shown.back()->hide();
        m_shown.back()->deleteLater();
        m_shown.pop_back();
    }
    if (m_rows.empty()) {
        return;
    }
    m_all->setText(m_rows.front().title);
    m_all->setDetail(m_rows.front().detail);
    m_all->setChecked(m_rows.front().isChosen);
    for (std::size_t index = 0; index < count; ++index) {
        if (index == m_shown.size()) {
            makeRow();
        }
        const DesktopRow &row = m_rows[index + 1];
        m_shown[index]->setText(row.title);
        m_shown[index]->setDetail(row.detail);
        m_shown[index]->setChecked(row.isChosen);
    }
}

void DesktopsCard::makeRow() {
    auto *row = new CheckRow({}, {});
    connect(row, &QCheckBox::clicked, this, [this, index = m_shown.size() + 1] { toggle(index); });
    addRow(row);
    visitAfter(m_shown.empty() ? static_cast<QWidget &>(*m_all) : *m_shown.back(), *row);
    m_shown.push_back(row);
}

void DesktopsCard::chooseAll() {
    m_context.preferences.setDesktopSelection(AllDesktops{});
}

void DesktopsCard::toggle(std::size_t index) {
    if (const auto number = m_rows[index].number) {
        toggleDesktop(*number, m_context.preferences);
        refresh(); // the last one stays chosen, whatever its own click made of its mark
    }
}

} // namespace zeph::ui
