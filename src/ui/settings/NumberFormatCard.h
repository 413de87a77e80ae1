// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Card.h"
#include "ui/settings/Pane.h"
#include "ui/settings/SettingsContext.h"

namespace zeph::ui {

class Switch;

/// Whose rules numbers are written by.
class NumberFormatCard : public Card {
public:
    explicit NumberFormatCard(const SettingsContext &context, QWidget *parent = nullptr);

    std::vector<SearchEntry> searchEntries() const { return {m_entry}; }

private:
    void refresh();

    SettingsContext m_context;
    Switch *m_usesRegion;
    SearchEntry m_entry;
};

} // namespace zeph::ui
