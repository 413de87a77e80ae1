// SPDX-License-Identifier: MIT
#pragma once

#include "services/forms/ServiceCards.h"
#include "ui/controls/Tile.h"
#include "ui/integrations/IntegrationsSelection.h"

namespace zeph::ui {

/// The tile of a service, of a custom endpoint, or of the quote.
class IntegrationCard : public Tile {
public:
    explicit IntegrationCard(const ServiceCard &card, QWidget *parent = nullptr);

    /// Shows `card`, which is of the same thing as before.
    void setCard(const ServiceCard &card);
    const ServiceCard &card() const { return m_card; }

    /// Where a press leads to.
    IntegrationsSelection target() const;

private:
    ServiceCard m_card;
};

} // namespace zeph::ui
