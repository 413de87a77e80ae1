// SPDX-License-Identifier: MIT
#include "ui/integrations/IntegrationCard.h"

namespace zeph::ui {

namespace {

Tile::Words tileWords(const ServiceCard &card) {
    return {.symbol = card.icon,
            .title = card.title,
            .blurb = card.blurb,
            .stateSymbol = card.stateIcon,
            .state = card.state,
            .isAddition = card.target == CardTarget::newEndpoint};
}

} // namespace

IntegrationCard::IntegrationCard(const ServiceCard &card, QWidget *parent)
    : Tile(tileWords(card), parent), m_card(card) {}

void IntegrationCard::setCard(const ServiceCard &card) {
    if (card != m_card) {
        m_card = card;
        set(tileWords(card));
    }
}

IntegrationsSelection IntegrationCard::target() const {
    using Page = IntegrationsSelection::Page;
    switch (m_card.target) {
    case CardTarget::accounts:
        return {.page = Page::accounts, .provider = m_card.id};
    case CardTarget::endpoint:
        return {.page = Page::endpoint, .id = m_card.endpoint};
    case CardTarget::newEndpoint:
        return {.page = Page::endpoint};
    case CardTarget::quote:
        return {.page = Page::quote};
    }
    return {};
}

} // namespace zeph::ui
