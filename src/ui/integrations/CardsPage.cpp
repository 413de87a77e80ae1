// SPDX-License-Identifier: MIT
#include "ui/integrations/CardsPage.h"

#include "services/accounts/IntegrationsStore.h"
#include "services/forms/ServiceCards.h"
#include "ui/controls/Card.h"
#include "ui/controls/Look.h"
#include "ui/controls/PaneHeader.h"
#include "ui/controls/PillButton.h"
#include "ui/controls/SectionLabel.h"
#include "ui/controls/SettingRow.h"
#include "ui/controls/StatusLine.h"
#include "ui/integrations/IntegrationCard.h"
#include "ui/integrations/IntegrationsWords.h"
#include "ui/integrations/StopOrder.h"
#include "ui/settings/LiveRefresh.h"

#include <QGridLayout>
#include <QHBoxLayout>

#include <set>
#include <utility>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr double tileGap = 12;
constexpr double groupGap = 30;
constexpr double leastBeside = 230; // of a tile that has another one beside it

int tileColumns(int width) {
    const bool isRoomForTwo = width >= 2 * scaled(leastBeside) + scaled(tileGap);
    return !isTextLarge() && isRoomForTwo ? 2 : 1;
}

/// The group that the custom endpoints stand in.
bool holdsEndpoints(const CardGroup &group) {
    return !group.cards.empty() && group.cards.back().target == CardTarget::newEndpoint;
}

} // namespace

CardsPage::CardsPage(const IntegrationsContext &context, PageActions actions, QWidget *parent)
    : IntegrationsPage(context, std::move(actions), parent) {
    add(new PaneHeader(words::paneTitle, words::paneSubtitle, this), 0);
    addKeyringNotice();
    for (const CardGroup &group : cardGroups(context.integrations)) {
        add(new SectionLabel(group.title, group.line, this), groupGap);
        auto *tiles = new QWidget(this);
        auto *grid = new QGridLayout(tiles);
        grid->setContentsMargins(0, 0, 0, 0);
        grid->setSpacing(scaled(tileGap));
        if (group.cards.size() == 1) { // no wider than where there are two
            m_fillers.push_back(new QWidget(tiles));
            grid->addWidget(m_fillers.back(), 0, 1);
        }
        m_grids.push_back(grid);
        add(tiles, tileGap);
        if (holdsEndpoints(group)) {
            addLockedLine();
        }
    }
    auto *live = new LiveRefresh(*this, context.runLoop, [this] { refresh(); });
    live->follow(context.integrations.objectWillChange);
    refresh();
}

QWidget *CardsPage::firstStop() {
    return nullptr; // nothing was asked for yet
}

QWidget *CardsPage::stopFor(const IntegrationsSelection &selection) const {
    for (const auto &[id, card] : m_cards) {
        const IntegrationsSelection target = card->target();
        const bool isItsList = target.page == IntegrationsSelection::Page::accounts &&
                               target.provider == selection.provider;
        if (target == selection || (isItsList && !selection.provider.isEmpty())) {
            return card;
        }
    }
    return nullptr;
}

std::vector<SearchEntry> CardsPage::searchEntries() const {
    std::vector<SearchEntry> entries;
    for (const CardGroup &group : cardGroups(context().integrations)) {
        for (const ServiceCard &card : group.cards) {
            const auto place = m_cards.find(card.id);
            if (place != m_cards.end()) {
                entries.push_back({.title = card.title,
                                   .detail = card.blurb,
                                   .target = place->second,
                                   .show = [this] { pane().leave(); }});
            }
        }
    }
    return entries;
}

void CardsPage::addKeyringNotice() {
    auto *notice = new Card(this);
    notice->addRow(new SettingRow(
        {.symbol = u"lock.keyhole"_s, .title = words::keyringTitle, .detail = words::keyringNotice},
        nullptr, notice));
    add(notice, headerGap);
}

void CardsPage::addLockedLine() {
    m_locked = new QWidget(this);
    auto *row = new QHBoxLayout(m_locked);
    row->setContentsMargins(0, scaled(tileGap), 0, 0);
    row->setSpacing(scaled(tileGap));
    auto *line = new StatusLine(m_locked);
    line->show(StatusLine::Kind::hint, words::endpointsLocked);
    m_openKeyring = new PillButton(words::openKeyring, PillButton::Kind::secondary, m_locked);
    m_openKeyring->setHeight(PillButton::Height::small);
    row->addWidget(line, 1);
    row->addWidget(m_openKeyring);
    connect(m_openKeyring, &QPushButton::clicked, this,
            [this] { context().integrations.openCustomAPIs(); });
    add(m_locked, 0);
}

void CardsPage::refresh() {
    const auto groups = cardGroups(context().integrations);
    std::set<QString> ids;
    for (const CardGroup &group : groups) {
        for (const ServiceCard &card : group.cards) {
            ids.insert(card.id);
        }
    }
    std::erase_if(m_cards, [&ids](const auto &entry) {
        const bool isGone = ids.count(entry.first) == 0;
        if (isGone) {
            entry.second->parentWidget()->layout()->removeWidget(entry.second);
            entry.second->hide();
            entry.second->deleteLater();
        }
        return isGone;
    });
    for (QWidget *filler : m_fillers) {
        filler->setVisible(m_columns > 1);
    }
    bool hasMoved = false;
    for (std::size_t index = 0; index < groups.size(); ++index) {
        hasMoved = fill(*m_grids[index], groups[index]) || hasMoved;
    }
    m_locked->setVisible(!context().integrations.areCustomAPIsLoaded());
    if (hasMoved) {
        orderCards(groups);
    }
}

void CardsPage::orderCards(const std::vector<CardGroup> &groups) {
    std::vector<QWidget *> stops;
    for (const CardGroup &group : groups) {
        for (const ServiceCard &card : group.cards) {
            stops.push_back(m_cards.at(card.id));
        }
        if (holdsEndpoints(group)) {
            stops.push_back(m_openKeyring);
        }
    }
    orderStops(stops);
}

void CardsPage::resizeEvent(QResizeEvent *event) {
    IntegrationsPage::resizeEvent(event);
    if (std::exchange(m_columns, tileColumns(width())) != m_columns) {
        refresh();
    }
}

/// Keeps the cards that are there, since one may have the focus. True when one stands elsewhere.
bool CardsPage::fill(QGridLayout &grid, const CardGroup &group) {
    const int columns = m_columns;
    bool hasMoved = false;
    for (int index = 0; index < static_cast<int>(group.cards.size()); ++index) {
        const ServiceCard &words = group.cards[static_cast<std::size_t>(index)];
        const auto known = m_cards.find(words.id);
        IntegrationCard *card = nullptr;
        if (known != m_cards.end()) {
            card = known->second;
            card->setCard(words);
        } else {
            card = new IntegrationCard(words, grid.parentWidget());
            m_cards.emplace(words.id, card);
            connect(card, &QPushButton::clicked, this,
                    [this, card] { pane().select(card->target()); });
        }
        const QLayoutItem *const there = grid.itemAtPosition(index / columns, index % columns);
        if (there == nullptr || there->widget() != card) {
            grid.removeWidget(card);
            grid.addWidget(card, index / columns, index % columns);
            card->show();
            hasMoved = true;
        }
    }
    grid.setColumnStretch(0, 1);
    grid.setColumnStretch(1, columns - 1);
    return hasMoved;
}

} // namespace zeph::ui
