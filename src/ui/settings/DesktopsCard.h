// SPDX-License-Identifier: MIT
#pragma once

#include "host/DesktopRows.h"
#include "ui/controls/Card.h"
#include "ui/settings/Pane.h"
#include "ui/settings/SettingsContext.h"

namespace zeph::ui {

class CheckRow;
class RadioRow;
class TextLabel;

/// Which workspaces carry the wallpaper.
class DesktopsCard : public Card {
public:
    explicit DesktopsCard(const SettingsContext &context, QWidget *parent = nullptr);

    std::vector<SearchEntry> searchEntries() const { return {m_entry}; }

private:
    void refresh();
    void chooseAll();
    void makeRow();
    void toggle(std::size_t index); ///< of `m_rows`

    SettingsContext m_context;
    TextLabel *m_onlyOne; ///< in place of the rows
    RadioRow *m_all;
    std::vector<CheckRow *> m_shown; ///< one a workspace
    std::vector<DesktopRow> m_rows;
    SearchEntry m_entry;
};

} // namespace zeph::ui
