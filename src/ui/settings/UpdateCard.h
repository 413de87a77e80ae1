// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Card.h"
#include "ui/settings/Pane.h"
#include "ui/settings/SettingsContext.h"

namespace zeph::ui {

class PillButton;
class StatusLine;

/// Looks for a newer version, installs it, and tells how that goes.
class UpdateCard : public Card {
public:
    explicit UpdateCard(const SettingsContext &context, QWidget *parent = nullptr);

    std::vector<SearchEntry> searchEntries() const { return {m_entry}; }

private:
    void refresh();
    void act();

    UpdateFramework &m_updates;
    PillButton *m_button;
    StatusLine *m_status;
    SearchEntry m_entry;
};

} // namespace zeph::ui
