// SPDX-License-Identifier: MIT
#pragma once

#include "base/ChangePublisher.h"
#include "settings/WidgetKind.h"
#include "ui/controls/SettingRow.h"

namespace zeph {
class PreferencesStore;
class RunLoop;
} // namespace zeph

namespace zeph::ui {

class SizeChoice;
class Switch;

/// Whether a service's widget is on the wallpaper, and how large. What is chosen counts at once.
class PlacementRow : public SettingRow {
public:
    PlacementRow(PreferencesStore &preferences, RunLoop &runLoop, WidgetKind kind,
                 QWidget *parent = nullptr);

private:
    void refresh();

    PreferencesStore &m_preferences;
    WidgetKind m_kind;
    SizeChoice *m_size;
    Switch *m_switch;
};

} // namespace zeph::ui
