// SPDX-License-Identifier: MIT
#pragma once

#include "ui/integrations/IntegrationsPage.h"

namespace zeph::ui {

class Switch;

/// The switch of the daily quote.
class QuoteEditor : public IntegrationsPage {
public:
    QuoteEditor(const IntegrationsContext &context, PageActions actions, QWidget *parent = nullptr);

    QWidget *firstStop() override;

private:
    Switch *m_switch;
};

} // namespace zeph::ui
