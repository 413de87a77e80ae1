// SPDX-License-Identifier: MIT
#include "ui/integrations/PlacementRow.h"

#include "settings/PreferencesStore.h"
#include "ui/controls/Look.h"
#include "ui/controls/SizeChoice.h"
#include "ui/controls/Switch.h"
#include "ui/integrations/IntegrationsWords.h"
#include "ui/settings/LiveRefresh.h"

#include <QHBoxLayout>
#include <QMouseEvent>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr double placementGap = 16;

} // namespace

PlacementRow::PlacementRow(PreferencesStore &preferences, RunLoop &runLoop, WidgetKind kind,
                           QWidget *parent)
    : SettingRow({.symbol = {}, .title = words::showOnWallpaper}, new QWidget, parent),
      m_preferences(preferences),
      m_kind(kind),
      m_size(new SizeChoice(control())),
      m_switch(new Switch(control())) {
    auto *row = new QHBoxLayout(control());
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(scaled(placementGap));
    row->addWidget(m_size, 0, Qt::AlignVCenter);
    row->addWidget(m_switch, 0, Qt::AlignVCenter);
    control()->setAccessibleName({}); // its parts have names
    m_switch->setAccessibleName(words::showOnWallpaper);
    m_size->setAccessibleName(u"Size of %1"_s.arg(zeph::title(kind)));
    m_size->setToolTip(words::sizes);
    m_size->onChosen = [this](int index) {
        m_preferences.setSize(static_cast<WidgetSizeOption>(index), m_kind);
    };
    connect(m_switch, &QCheckBox::clicked, this, [this](bool isOn) {
        m_preferences.set(isOn ? WidgetPlacement::always : WidgetPlacement::off, m_kind);
    });
    auto *live = new LiveRefresh(*this, runLoop, [this] { refresh(); });
    live->follow(preferences.objectWillChange);
    refresh();
}

void PlacementRow::refresh() {
    const bool isOn = m_preferences.isOn(m_kind);
    m_switch->setChecked(isOn);
    m_size->setVisible(isOn);
    m_size->choose(static_cast<int>(m_preferences.size(m_kind)));
}

} // namespace zeph::ui
