// SPDX-License-Identifier: MIT
#pragma once

#include "model/RevenueStats.h"
#include "services/web/ContractServer.h"
#include "services/web/Endpoints.h"
#include "support/DateOf.h"
#include "support/ManualClock.h"
#include "support/UtcCalendar.h"

#include <QStringList>

namespace zeph {

inline constexpr const char *fetchTime = "2025-11-14T03:15:30.750Z";

/// The record in one line, its identity aside.
inline QString told(const RevenueStats &stats) {
    QStringList parts{stats.provider, stats.providerName, stats.currency};
    const auto add = [&parts](const char *name, const std::optional<qint64> &number) {
        parts << QString::fromLatin1(name) +
                     (number ? QString::number(*number) : QStringLiteral("-"));
    };
    add("mrr ", stats.mrrCents);
    add("arr ", stats.arrCents);
    add("paid ", stats.paidCustomers);
    add("trial ", stats.trialUsers);
    add("total ", stats.totalRevenueCents);
    parts << (stats.updated == dateOf(fetchTime) ? QStringLiteral("updated now")
              : stats.updated                    ? QStringLiteral("updated at another time")
                                                 : QStringLiteral("not updated"));
    parts << (stats.error ? QStringLiteral("error: ") + *stats.error : QStringLiteral("no error"));
    return parts.join(QStringLiteral(" | "));
}

/// Full pages of a list: `count` times the same element.
inline QByteArray repeated(const QByteArray &element, int count) {
    QByteArray elements = (element + ',').repeated(count);
    elements.chop(1);
    return elements;
}

} // namespace zeph
