// SPDX-License-Identifier: MIT
#include "ui/settings/UnitsCard.h"

#include "settings/PreferencesStore.h"
#include "ui/controls/Segmented.h"
#include "ui/controls/SettingRow.h"
#include "ui/settings/LiveRefresh.h"

namespace zeph::ui {

using namespace Qt::StringLiterals;

UnitsCard::UnitsCard(const SettingsContext &context, QWidget *parent)
    : Card(parent),
      m_context(context),
      m_choice(new Segmented({u"Metric"_s, u"Imperial"_s})),
      m_entry{u"Units"_s, u"Temperature and distance — weather, cursor travel, and the ISS."_s,
              m_choice} {
    addRow(new SettingRow({u"ruler"_s, m_entry.title, m_entry.detail}, m_choice));
    m_choice->onChosen = [this](int index) {
        m_context.preferences.setUnitSystem(static_cast<UnitSystem>(index));
    };
    refresh();
    auto *live = new LiveRefresh(*this, context.runLoop, [this] { refresh(); });
    live->follow(context.preferences.objectWillChange);
}

void UnitsCard::refresh() {
    m_choice->choose(static_cast<int>(m_context.preferences.unitSystem()));
}

} // namespace zeph::ui
