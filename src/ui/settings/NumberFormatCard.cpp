// SPDX-License-Identifier: MIT
#include "ui/settings/NumberFormatCard.h"

#include "settings/PreferencesStore.h"
#include "ui/controls/SettingRow.h"
#include "ui/controls/Switch.h"
#include "ui/settings/LiveRefresh.h"

namespace zeph::ui {

using namespace Qt::StringLiterals;

NumberFormatCard::NumberFormatCard(const SettingsContext &context, QWidget *parent)
    : Card(parent),
      m_context(context),
      m_usesRegion(new Switch),
      m_entry{u"Use my region's number format"_s,
              u"Off: US format everywhere (100,000 · 1,000,000). On: your computer's locale (e.g. "
              u"1,00,000). Applies to all integration numbers."_s,
              m_usesRegion} {
    addRow(new SettingRow({u"number"_s, m_entry.title, m_entry.detail}, m_usesRegion));
    connect(m_usesRegion, &QCheckBox::clicked, this,
            [this](bool isOn) { m_context.preferences.setUseSystemNumberFormat(isOn); });
    refresh();
    auto *live = new LiveRefresh(*this, context.runLoop, [this] { refresh(); });
    live->follow(context.preferences.objectWillChange);
}

void NumberFormatCard::refresh() {
    m_usesRegion->setChecked(m_context.preferences.useSystemNumberFormat());
}

} // namespace zeph::ui
