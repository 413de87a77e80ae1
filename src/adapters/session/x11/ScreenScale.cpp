// SPDX-License-Identifier: MIT
#include "adapters/session/x11/ScreenScale.h"

#include <QList>

#include <algorithm>

namespace zeph {

namespace {

constexpr double kDotsOfOnePoint = 96;

double positive(const QByteArray &text, double otherwise) {
    const double value = text.trimmed().toDouble();
    return value > 0 ? value : otherwise;
}

double fromResources(const QByteArray &resources) {
    const QList<QByteArray> lines = resources.split('\n');
    for (const QByteArray &line : lines) {
        const auto colon = line.indexOf(':');
        if (colon > 0 && line.left(colon).trimmed() == "Xft.dpi") {
            const double dots = positive(line.mid(colon + 1), kDotsOfOnePoint);
            return std::max(1.0, qRound(dots) / kDotsOfOnePoint);
        }
    }
    return 1;
}

std::optional<double> ofScreen(const QByteArray &factors, const ScaledScreen &screen) {
    const QByteArray connector = screen.connector.toUtf8();
    const QList<QByteArray> all = factors.split(';');
    for (qsizetype i = 0; i < all.size(); ++i) {
        const auto equals = all[i].lastIndexOf('=');
        if (equals < 0 ? i == screen.index : all[i].left(equals).trimmed() == connector) {
            const double own = positive(all[i].mid(equals + 1), 0);
            return own > 0 ? std::optional(own) : std::nullopt;
        }
    }
    return std::nullopt;
}

} // namespace

double screenScale(const ScaleSettings &settings, const ScaledScreen &screen) {
    const auto own = ofScreen(settings.factorsOfScreens, screen);
    const auto scale = own ? own : screen.told;
    return positive(settings.factor, 1) * scale.value_or(fromResources(settings.resources));
}

} // namespace zeph
