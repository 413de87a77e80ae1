// SPDX-License-Identifier: MIT
#pragma once

#include "ui/settings/Pane.h"
#include "ui/settings/SettingsContext.h"

namespace zeph::ui {

class Segmented;
class WidgetLayoutEditor;

/// The tab "Visual Layout": the wallpaper as it flows by itself, or in the user's order.
class LayoutPane : public Pane {
public:
    explicit LayoutPane(const SettingsContext &context, QWidget *parent = nullptr);

    std::vector<SearchEntry> searchEntries() override;

private:
    QWidget *makeModeLine();
    QWidget *makeAutomatic();
    void refresh();

    SettingsContext m_context;
    Segmented *m_mode;
    QWidget *m_automatic;         ///< shown in automatic mode
    WidgetLayoutEditor *m_editor; ///< shown in manual mode
};

} // namespace zeph::ui
