// SPDX-License-Identifier: MIT
#include "adapters/places/GeoClueValues.h"

#include "adapters/bus/DBusCalls.h"
#include "adapters/places/GeoClueSession.h"

#include <QMetaType>

#include <cmath>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

/// The angle under `name`, when it is a number from -limit to limit.
std::optional<double> angleIn(const QVariantMap &location, const QString &name, double limit) {
    const QVariant value = location.value(name);
    const double angle = value.toDouble();
    if (value.typeId() != QMetaType::Double || !(std::abs(angle) <= limit)) {
        return std::nullopt;
    }
    return std::round(angle * 100.0) / 100.0;
}

} // namespace

GeoClueFailure failureOf(const QString &errorName) {
    for (const QString &refusal :
         {u"org.freedesktop.DBus.Error.AccessDenied"_s, u"org.freedesktop.DBus.Error.AuthFailed"_s,
          u"org.freedesktop.DBus.Error.InteractiveAuthorizationRequired"_s}) {
        if (errorName == refusal) {
            return GeoClueFailure::refused;
        }
    }
    return tellsOfNoService(errorName) ? GeoClueFailure::absent : GeoClueFailure::lost;
}

std::optional<Coordinate> positionIn(const QVariantMap &location) {
    const auto latitude = angleIn(location, u"Latitude"_s, 90);
    const auto longitude = angleIn(location, u"Longitude"_s, 180);
    if (!latitude || !longitude) {
        return std::nullopt;
    }
    return Coordinate{*latitude, *longitude};
}

} // namespace zeph
