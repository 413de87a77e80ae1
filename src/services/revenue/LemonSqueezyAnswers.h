// SPDX-License-Identifier: MIT
#pragma once

#include "model/RevenueStats.h"
#include "services/revenue/LemonSqueezyPrice.h"

#include <QJsonValue>

#include <vector>

/// Reading what Lemon Squeezy answers.
namespace zeph::LemonSqueezyAnswers {

/// What a subscription is for.
struct Item {
    qint64 priceId = 0;
    qint64 quantity = 1;

    bool operator==(const Item &) const = default;
};

/// A page of subscriptions: those with a readable price, and whether it was a full page.
struct Page {
    std::vector<Item> items;
    bool isFull = false;
};

/// Takes revenue and currency of the first store, as far as they are told.
void readStore(const QJsonValue &body, RevenueStats &stats);

/// The number of all elements of a list, whatever the page holds; 0 when it isn't told.
qint64 total(const QJsonValue &body);

/// A body without a list is a page with nothing on it.
Page subscriptions(const QJsonValue &body);

/// Throws `ServiceError` for a price without a whole amount.
LemonSqueezyPrice price(const QJsonValue &body);

} // namespace zeph::LemonSqueezyAnswers
