// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Card.h"
#include "ui/settings/Pane.h"
#include "ui/settings/SettingsContext.h"

namespace zeph::ui {

class StatusLine;
class Switch;

/// Whether the program's own wallpaper takes the place of the desktop's, for desktops that take
/// one.
class DesktopWallpaperCard : public Card {
public:
    /// `wallpaper` outlives it.
    DesktopWallpaperCard(const SettingsContext &context, DesktopWallpaper &wallpaper,
                         QWidget *parent = nullptr);

    std::vector<SearchEntry> searchEntries() const;

protected:
    void showEvent(QShowEvent *event) override;

private:
    void refresh();

    DesktopWallpaper &m_wallpaper;
    Switch *m_switch;
    StatusLine *m_problem;
};

} // namespace zeph::ui
