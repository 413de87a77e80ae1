// SPDX-License-Identifier: MIT
#include "adapters/session/gnome/DisplayConfig.h"

#include <QDBusArgument>
#include <QVariantMap>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

// A serial number, the monitors with their modes, the parts of the desktop, properties.
const QString kStateSignature = u"ua((ssss)a(siiddada{sv})a{sv})a(iiduba(ssss)a{sv})a{sv}"_s;
constexpr int kPartsArgument = 2;
constexpr int kPropertiesArgument = 3;

// Values of "layout-mode".
constexpr uint kLogicalLayout = 1;
constexpr uint kPhysicalLayout = 2;

// Its own settings offer 1 to 4.
constexpr double kLeastScale = 0.5;
constexpr double kLargestScale = 16;

std::optional<DisplayConfig::Layout> layoutIn(const QVariantMap &properties) {
    switch (properties.value(u"layout-mode"_s).toUInt()) {
    case kLogicalLayout:
        return DisplayConfig::Layout::points;
    case kPhysicalLayout:
        return DisplayConfig::Layout::pixels;
    default:
        return std::nullopt;
    }
}

QStringList connectorsIn(const QDBusArgument &monitors) {
    QStringList connectors;
    monitors.beginArray();
    while (!monitors.atEnd()) {
        QString connector;
        QString vendor;
        QString product;
        QString serialNumber;
        monitors.beginStructure();
        monitors >> connector >> vendor >> product >> serialNumber;
        monitors.endStructure();
        connectors.append(connector);
    }
    monitors.endArray();
    return connectors;
}

DisplayConfig::Part partIn(const QDBusArgument &argument) {
    DisplayConfig::Part part;
    uint transform = 0;
    bool isPrimary = false;
    QVariantMap properties;
    argument.beginStructure();
    argument >> part.place.rx() >> part.place.ry() >> part.scale >> transform >> isPrimary;
    part.connectors = connectorsIn(argument);
    argument >> properties;
    argument.endStructure();
    return part;
}

} // namespace

std::optional<DisplayConfig> displayConfigIn(const QDBusMessage &answer) {
    if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != kStateSignature) {
        return std::nullopt;
    }
    const QVariantList arguments = answer.arguments();
    const auto layout = layoutIn(qdbus_cast<QVariantMap>(arguments.at(kPropertiesArgument)));
    if (!layout) {
        return std::nullopt;
    }
    DisplayConfig config{.layout = *layout};
    const auto parts = arguments.at(kPartsArgument).value<QDBusArgument>();
    parts.beginArray();
    while (!parts.atEnd()) {
        const DisplayConfig::Part part = partIn(parts);
        // No number at all fails both comparisons.
        if (part.scale >= kLeastScale && part.scale <= kLargestScale) {
            config.parts.push_back(part);
        }
    }
    parts.endArray();
    return config;
}

std::optional<double> pixelsInPoint(const DisplayConfig &config, const QString &connector,
                                    const QRect &geometry) {
    if (config.layout == DisplayConfig::Layout::points) {
        return 1;
    }
    const auto &parts = config.parts;
    auto found = std::find_if(parts.begin(), parts.end(), [&](const DisplayConfig::Part &part) {
        return part.connectors.contains(connector);
    });
    if (found == parts.end()) {
        found = std::find_if(parts.begin(), parts.end(), [&](const DisplayConfig::Part &part) {
            return part.place == geometry.topLeft();
        });
    }
    return found != parts.end() ? std::optional(found->scale) : std::nullopt;
}

} // namespace zeph
