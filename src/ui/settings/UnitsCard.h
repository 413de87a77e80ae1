// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Card.h"
#include "ui/settings/Pane.h"
#include "ui/settings/SettingsContext.h"

namespace zeph::ui {

class Segmented;

/// Metric or imperial.
class UnitsCard : public Card {
public:
    explicit UnitsCard(const SettingsContext &context, QWidget *parent = nullptr);

    std::vector<SearchEntry> searchEntries() const { return {m_entry}; }

private:
    void refresh();

    SettingsContext m_context;
    Segmented *m_choice;
    SearchEntry m_entry;
};

} // namespace zeph::ui
