// SPDX-License-Identifier: MIT
#pragma once

#include "ui/settings/Pane.h"
#include "ui/settings/SettingsContext.h"

namespace zeph {

struct WidgetSection;

namespace ui {

class WidgetPlacementRow;

/// The tab "Widgets": which of them are on the wallpaper, section by section.
class DisplayPane : public Pane {
public:
    explicit DisplayPane(const SettingsContext &context, QWidget *parent = nullptr);

    std::vector<SearchEntry> searchEntries() override;

private:
    void addSection(const WidgetSection &section, const SettingsContext &context, int gap);
    void refresh();

    std::vector<WidgetPlacementRow *> m_rows;
};

} // namespace ui

} // namespace zeph
