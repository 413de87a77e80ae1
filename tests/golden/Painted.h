// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/painting/QtTextMetrics.h"
#include "drawing/painting/ScenePainter.h"
#include "drawing/painting/SymbolLibrary.h"
#include "drawing/scene/Scene.h"

#include <QImage>

namespace zeph {

/// Paints scenes the way the desktop shows them.
class Painted {
public:
    const QtTextMetrics &metrics() const { return m_metrics; }

    /// `scene` on an opaque surface of `size` points at `scale` device pixels a point.
    QImage opaque(const Scene &scene, const QSize &size, double scale);

    /// `scene` on a surface that lets the desktop show through, over `desktop`, which is as large
    /// as the surface in device pixels.
    QImage over(const QImage &desktop, const Scene &scene, const QSize &size, double scale);

private:
    void paint(const Scene &scene, double scale, QImage &target);

    QtTextMetrics m_metrics;
    SymbolLibrary m_symbols;
    ScenePainter m_painter{m_metrics, m_symbols};
};

/// A desktop picture of soft hills under an evening sky.
QImage desktopPicture(const QSize &size);

/// A bright swirl on a dark sky, as an encoded picture.
QByteArray encodedSky();

} // namespace zeph
