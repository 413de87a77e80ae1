// SPDX-License-Identifier: MIT
#pragma once

#include "settings/WidgetKind.h"
#include "ui/controls/SettingRow.h"
#include "ui/settings/Pane.h"
#include "ui/settings/SettingsContext.h"

namespace zeph::ui {

class SizeChoice;
class StatusLine;
class Switch;

/// One widget: whether it is on the wallpaper and how large; and why it is not to be seen there
/// though it is on.
class WidgetPlacementRow : public SettingRow {
public:
    WidgetPlacementRow(WidgetKind kind, const SettingsContext &context, QWidget *parent = nullptr);

    /// Shows what is stored and known now.
    void refresh();

    SearchEntry searchEntry() const;

private:
    struct Controls;

    WidgetPlacementRow(WidgetKind kind, SettingsContext context, Controls *controls,
                       QWidget *parent);

    QString hint() const;

    WidgetKind m_kind;
    SettingsContext m_context;
    Switch *m_isOn;
    SizeChoice *m_size;
    StatusLine *m_hint;
};

} // namespace zeph::ui
