// SPDX-License-Identifier: MIT
#pragma once

#include "model/StripeStats.h"
#include "services/revenue/ExchangeRates.h"
#include "services/revenue/StripeRequests.h"

#include <QJsonObject>

#include <functional>

namespace zeph {

class Calendar;
class Clock;
struct Endpoints;

/// Figures of a Stripe account through a restricted key that can only read. Keeps nothing between
/// calls; callable from any thread but the main one.
class StripeService {
public:
    /// `calendar` tells the days of the account's time zone, and of the user's where that is not
    /// known.
    StripeService(HttpClient &client, const Endpoints &endpoints, const Clock &clock,
                  const Calendar &calendar);

    /// Blocks through 6 to 63 requests, one after the other. Never throws: where the balance can't
    /// be read the record tells why in `error`; a later failure leaves a figure short.
    StripeStats fetch(const QString &key) const;

private:
    QJsonObject get(const QString &key, const QString &path, const StripeQuery &query = {}) const;
    void paginate(const QString &key, const QString &path, const StripeQuery &query,
                  const std::function<void(const QJsonObject &page)> &each) const;
    std::optional<QString> accountTimeZone(const QString &key) const;
    ExchangeRates fetchRates(const QString &base) const;
    QString startOfToday(const std::optional<QString> &zone) const;

    HttpClient &m_client;
    const Clock &m_clock;
    const Calendar &m_calendar;
    QString m_base;
    QString m_ratesRoot;
};

} // namespace zeph
