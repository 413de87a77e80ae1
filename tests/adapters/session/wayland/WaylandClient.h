// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/wayland/WaylandWindowServer.h"
#include "support/WaitUntil.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

namespace zeph {

/// Our side of a compositor. The steady time stands still unless the test moves it.
class WaylandClient {
public:
    explicit WaylandClient(const QByteArray &display) {
        connection = WaylandConnection::open(display).connection;
        auto shell = connection ? LayerShell::bind(*connection) : std::nullopt;
        if (!shell) {
            throw std::runtime_error("the compositor does not offer layers");
        }
        outputs = std::make_unique<WaylandOutputs>(*connection, shell->abilities(),
                                                   QStringLiteral("/nonexistent"));
        server = std::make_unique<WaylandWindowServer>(*connection, std::move(*shell), *outputs,
                                                       [this] { return now; });
    }

    std::unique_ptr<DesktopSurface> makeSurface(bool wantsTransparency = false) const {
        return server->makeDesktopSurface(outputs->all().at(0), wantsTransparency);
    }

    /// Has everything said and answered on both sides.
    void settle() const {
        for (int i = 0; i < 3; ++i) {
            QCoreApplication::processEvents();
            connection->waitForAnswers();
            QCoreApplication::processEvents();
        }
    }

    std::chrono::steady_clock::time_point now{std::chrono::hours(1)};
    std::unique_ptr<WaylandConnection> connection;
    std::unique_ptr<WaylandOutputs> outputs;
    std::unique_ptr<WaylandWindowServer> server;
};

inline QImage plainImage(QSize size, QColor colour, QImage::Format format = QImage::Format_RGB32) {
    QImage image(size, format);
    image.fill(colour);
    return image;
}

/// Fills the surface and shows all of it.
inline QRegion fillSurface(DesktopSurface &surface, QColor colour) {
    return surface.show([colour](QImage &frame) {
        frame.fill(colour);
        return QRegion(frame.rect());
    });
}

/// Fills a part of the surface and shows that.
inline QRegion fillPart(DesktopSurface &surface, QColor colour, const QRect &part) {
    return surface.show([colour, part](QImage &frame) {
        for (int y = part.top(); y <= part.bottom(); ++y) {
            for (int x = part.left(); x <= part.right(); ++x) {
                frame.setPixelColor(x, y, colour);
            }
        }
        return QRegion(part);
    });
}

} // namespace zeph
