// SPDX-License-Identifier: MIT
#include "services/forms/ServiceCards.h"

#include "base/UuidText.h"
#include "services/accounts/IntegrationsStore.h"
#include "services/accounts/Providers.h"
#include "services/catalogue/ServiceCatalogue.h"
#include "services/forms/AccountWords.h"
#include "settings/WidgetKind.h"

#include <array>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const auto quoteID = u"quote"_s;
const auto connectedIcon = u"checkmark.circle.fill"_s;

/// A heading and the services under it.
struct GroupRow {
    QString title;
    QString line;
    QStringList services;
};

const std::vector<GroupRow> &groupRows() {
    static const std::vector<GroupRow> rows = {
        {u"Revenue & payments"_s,
         u"Sales, MRR, and customers on your wallpaper"_s,
         {u"stripe"_s, u"chartmogul"_s, u"lemonsqueezy"_s, u"dodo"_s, u"gumroad"_s, u"polar"_s,
          u"trustmrr"_s}},
        {u"SEO"_s, u"Domain authority on your wallpaper"_s, {u"ahrefs"_s}},
        {u"Developer"_s, u"Code, feeds, and any endpoint"_s, {u"github"_s, u"rss"_s}},
        {u"Audience & social"_s,
         u"Followers and karma across platforms"_s,
         {u"reddit"_s, u"bluesky"_s, u"producthunt"_s, u"hackernews"_s}},
        {u"Markets & money"_s,
         u"Crypto prices and live currency rates"_s,
         {u"coingecko"_s, u"currency"_s}},
        {u"Daily delight"_s, u"A little something every day"_s, {quoteID}},
    };
    return rows;
}

ServiceCard quoteCard(const IntegrationsStore &store) {
    ServiceCard card;
    card.target = CardTarget::quote;
    card.id = quoteID;
    card.title = u"Quote of the Day"_s;
    card.icon = icon(WidgetKind::quote);
    card.blurb = u"Daily inspiration"_s;
    card.isConnected = store.quoteEnabled();
    if (card.isConnected) {
        card.state = u"Connected"_s;
        card.stateIcon = connectedIcon;
    }
    return card;
}

/// The cards of the endpoints, and the one that adds another.
void addEndpointCards(std::vector<ServiceCard> &cards, const IntegrationsStore &store) {
    for (const CustomAPIConfig &endpoint : store.customAPIs()) {
        ServiceCard &card = cards.emplace_back();
        card.target = CardTarget::endpoint;
        card.id = uuidText(endpoint.id);
        card.endpoint = endpoint.id;
        card.title = endpoint.name.isEmpty() ? u"Custom API"_s : endpoint.name;
        card.icon = icon(WidgetKind::customAPIs);
        card.blurb = u"Any endpoint + JSON path"_s;
    }
    ServiceCard &another = cards.emplace_back();
    another.target = CardTarget::newEndpoint;
    another.id = u"newEndpoint"_s;
    another.title = u"Add custom API"_s;
    another.icon = u"plus.circle"_s;
}

} // namespace

std::vector<CardGroup> cardGroups(const IntegrationsStore &store) {
    std::vector<CardGroup> groups;
    for (const GroupRow &row : groupRows()) {
        CardGroup &group = groups.emplace_back(CardGroup{row.title, row.line, {}});
        for (const QString &service : row.services) {
            group.cards.push_back(cardForID(service, store));
        }
        if (row.services.contains(u"github"_s)) {
            addEndpointCards(group.cards, store);
        }
    }
    return groups;
}

ServiceCard cardForID(const QString &id, const IntegrationsStore &store) {
    if (id == quoteID) {
        return quoteCard(store);
    }
    const AccountWords words = accountWords(id);
    const ServiceRow *const row = serviceRow(id);
    ServiceCard card;
    card.id = id;
    card.title = words.title;
    card.icon = words.icon;
    card.blurb = row && row->words ? row->words->blurb.toString() : QString();
    const auto accounts = store.connections(id).size();
    card.isConnected = accounts > 0;
    if (card.isConnected) {
        card.state = u"%1 connected"_s.arg(accounts);
        card.stateIcon = connectedIcon;
    } else if (providers::isKeyless(id)) {
        card.state = u"No API key needed"_s;
        card.stateIcon = u"checkmark.seal"_s;
    }
    return card;
}

} // namespace zeph
