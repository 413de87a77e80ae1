// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/painting/QtTextMetrics.h"
#include "drawing/painting/ScenePainter.h"
#include "drawing/painting/SymbolLibrary.h"
#include "drawing/scene/Scene.h"

#include <QFile>
#include <QRegion>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace zeph {

/// A painter with one symbol of its own, "sun.max": a disc that fills the middle of its box.
class PaintingFixture : public testing::Test {
protected:
    PaintingFixture() {
        QFile file(home.filePath(QStringLiteral("sun.max.svg")));
        if (!file.open(QIODevice::WriteOnly) ||
            file.write("<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 24 24'>"
                       "<circle cx='12' cy='12' r='8'/></svg>") < 0) {
            ADD_FAILURE() << "cannot write the symbol";
        }
    }

    QImage painted(const Scene &scene, const QSize &size, double scale = 1) {
        QImage frame(size, QImage::Format_RGB32);
        painter.paint(scene, frame.rect(), scale, frame);
        return frame;
    }

    QTemporaryDir home;
    QtTextMetrics metrics;
    SymbolLibrary symbols{home.path()};
    ScenePainter painter{metrics, symbols};
};

} // namespace zeph
