// SPDX-License-Identifier: MIT
#pragma once

#include "model/RevenueStats.h"

#include <QJsonValue>

/// The question to ChartMogul and the reading of its answer.
namespace zeph::ChartMogulMetrics {

/// All metrics from `start` to `end`, both days as "yyyy-MM-dd".
QString url(const QString &root, const QString &start, const QString &end);

/// Takes the figures of the last entry. Throws `ServiceError` when there is none.
void read(const QJsonValue &body, RevenueStats &stats);

} // namespace zeph::ChartMogulMetrics
