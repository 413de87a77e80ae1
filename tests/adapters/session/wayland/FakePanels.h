// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/common/UsableAreas.h"

namespace zeph {

/// A panel at the top of every output, as high as the test says.
class FakePanels : public UsableAreas {
public:
    std::optional<QRectF> usableArea(const QString & /*outputName*/,
                                     const QRectF & /*frame*/) override {
        return QRectF(0, m_height, 10000, 10000);
    }
    bool laterLieBelow() const override { return isLaterBelow; }
    bool mirrorsShareSurfaces() const override { return areMirrorsOneScene; }
    Subscription subscribe(std::function<void()> handler) override {
        return m_changes.subscribe(std::move(handler));
    }

    void setHeight(double points) {
        m_height = points;
        m_changes.send();
    }

    bool isLaterBelow = true;
    bool areMirrorsOneScene = false;

private:
    double m_height = 0;
    ChangePublisher m_changes;
};

} // namespace zeph
