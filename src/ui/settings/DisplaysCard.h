// SPDX-License-Identifier: MIT
#pragma once

#include "host/DisplayRows.h"
#include "ui/controls/Card.h"
#include "ui/settings/Pane.h"
#include "ui/settings/SettingsContext.h"

class QButtonGroup;

namespace zeph::ui {

class RadioRow;

/// Which displays carry the wallpaper.
class DisplaysCard : public Card {
public:
    explicit DisplaysCard(const SettingsContext &context, QWidget *parent = nullptr);

    std::vector<SearchEntry> searchEntries() const { return {m_entry}; }

private:
    void refresh();
    void makeRow(int index);
    void choose(int index);

    SettingsContext m_context;
    QButtonGroup *m_group; ///< the rows by their place
    std::vector<RadioRow *> m_shown;
    std::vector<DisplayRow> m_rows;
    SearchEntry m_entry;
};

} // namespace zeph::ui
