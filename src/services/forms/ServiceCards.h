// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUuid>

#include <vector>

namespace zeph {

class IntegrationsStore;

/// What a card leads to.
enum class CardTarget { accounts, endpoint, newEndpoint, quote };

/// One card among all integrations.
struct ServiceCard {
    CardTarget target = CardTarget::accounts;
    QString id;          ///< the service's key, an endpoint's identity, "newEndpoint" or "quote"
    QUuid endpoint = {}; ///< the identity of an endpoint that is there
    QString title;
    QString icon;
    QString blurb;     ///< empty where the card only offers to add something
    QString state;     ///< empty where there is nothing to say
    QString stateIcon; ///< symbol of the state, empty without one
    bool isConnected = false;

    bool operator==(const ServiceCard &) const = default;
};

/// Cards under a heading.
struct CardGroup {
    QString title;
    QString line; ///< under the title
    std::vector<ServiceCard> cards;

    bool operator==(const CardGroup &) const = default;
};

/// All groups in order, with what the store holds now.
std::vector<CardGroup> cardGroups(const IntegrationsStore &store);

/// The card of a service by its key, or the one of the quote by "quote".
ServiceCard cardForID(const QString &id, const IntegrationsStore &store);

} // namespace zeph
