// SPDX-License-Identifier: MIT
#pragma once

#include "base/ChangePublisher.h"
#include "ports/Port.h"

#include <QRectF>
#include <QString>

#include <functional>
#include <optional>

namespace zeph {

/// What panels leave of each output, where the display system itself does not tell clients. Main
/// thread only.
class UsableAreas : public Port {
public:
    /// In logical points of the whole layout, in which the output lies at `frame`; absent while it
    /// is not known, and for an output that the desktop does not name so. The first call for an
    /// output may be what has it followed.
    virtual std::optional<QRectF> usableArea(const QString &outputName, const QRectF &frame) = 0;

    /// Whether the compositor draws the later of two surfaces of one layer below the earlier one: a
    /// panel that comes late lies beneath a wallpaper of its layer then.
    virtual bool laterLieBelow() const { return false; }

    /// Whether outputs that show one place (mirrors) show the surfaces of each other, too.
    virtual bool mirrorsShareSurfaces() const { return false; }

    /// Calls `handler` after every change, until the subscription ends.
    [[nodiscard]] virtual Subscription subscribe(std::function<void()> handler) = 0;
};

} // namespace zeph
