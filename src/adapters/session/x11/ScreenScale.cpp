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

double ofScreen(const QByteArray &factors, const QByteArray &connector, qsizetype index) {
    const QList<QByteArray> all = factors.split(';');
    for (qsizetype i = 0; i < all.size(); ++i) {
        const auto equals = all[i].lastIndexOf('=');
        if (equals < 0 ? i == index : all[i].left(equals).trimmed() == connector) {
            return positive(all[i].mid(equals + 1), 0);
        }
    }
    return 0;
}

} // namespace

double screenScale(const ScaleSettings &settings, const QString &connector, qsizetype index) {
    const double own = ofScreen(settings.factorsOfScreens, connector.toUtf8(), index);
    return positive(settings.factor, 1) * (own > 0 ? own : fromResources(settings.resources));
}

} // namespace zeph
