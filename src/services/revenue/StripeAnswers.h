// SPDX-License-Identifier: MIT
#pragma once

#include "model/StripeStats.h"
#include "ports/HttpClient.h"
#include "services/revenue/ExchangeRates.h"

#include <QJsonObject>

/// Reading what Stripe and the exchange-rate service answer.
namespace zeph::StripeAnswers {

/// The body as an object, empty for a body that is none. Throws `ServiceError` for a status that
/// is not of success.
QJsonObject object(const HttpResponse &response);

/// Takes the available amount and its currency.
void readBalance(const QJsonObject &balance, StripeStats &stats);

/// The name of the account's own time zone, as told.
std::optional<QString> timeZone(const QJsonObject &account);

/// Empty unless every rate is a number. The status is not looked at.
ExchangeRates rates(const QByteArray &body);

/// Adds one page of balance transactions to today's figures.
void addTransactions(const QJsonObject &page, StripeStats &stats);

/// Adds one page of new customers.
void addCustomers(const QJsonObject &page, StripeStats &stats);

/// Adds one page of active subscriptions, converted to the currency of `stats`.
void addSubscriptions(const QJsonObject &page, const ExchangeRates &rates, StripeStats &stats);

/// The element that the next page comes after; absent on the last page.
std::optional<QString> lastOfMore(const QJsonObject &page);

} // namespace zeph::StripeAnswers
