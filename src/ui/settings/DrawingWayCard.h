// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Card.h"
#include "ui/settings/Pane.h"
#include "ui/settings/SettingsContext.h"

namespace zeph::ui {

class SettingRow;

/// Tells by what the wallpaper gets onto this desktop, and why.
class DrawingWayCard : public Card {
public:
    explicit DrawingWayCard(const SettingsContext &context, QWidget *parent = nullptr);

    std::vector<SearchEntry> searchEntries() const;

private:
    void refresh();

    WindowServer &m_server;
    SettingRow *m_row;
};

} // namespace zeph::ui
