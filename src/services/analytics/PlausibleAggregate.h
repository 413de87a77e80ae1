// SPDX-License-Identifier: MIT
#pragma once

#include "model/AnalyticsStats.h"

#include <QJsonValue>

/// The question to Plausible and the reading of its answer.
namespace zeph::PlausibleAggregate {

/// Today's figures of `site`, which is taken as it stands.
QString url(const QString &root, const QString &site);

/// Takes the figures that are told. Throws `ServiceError` for an answer of another form.
void read(const QJsonValue &body, AnalyticsStats &stats);

} // namespace zeph::PlausibleAggregate
