// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Screens.h"

namespace zeph {

/// Displays that the test plugs and unplugs.
class FakeScreens : public Screens {
public:
    std::vector<Screen> all() const override { return screens; }
    std::optional<Screen> main() const override {
        return screens.empty() ? mainAlone : std::optional(screens.front());
    }
    Subscription subscribe(std::function<void()> handler) override {
        return m_changes.subscribe(std::move(handler));
    }

    /// Replaces the displays and tells of it.
    void change(std::vector<Screen> next) {
        screens = std::move(next);
        m_changes.send();
    }

    std::vector<Screen> screens;
    std::optional<Screen> mainAlone; ///< the main one while the list is empty

private:
    ChangePublisher m_changes;
};

/// A display of this size at `x`, with a panel of `panel` points at its top.
inline Screen screen(const QString &identity, quint32 number, double width, double height,
                     double x = 0, double scale = 1, double panel = 0) {
    Screen made;
    made.displayID = number;
    if (!identity.isEmpty()) {
        made.persistentID = identity;
    }
    made.frame = QRectF(x, 0, width, height);
    made.visibleFrame = made.frame.adjusted(0, panel, 0, 0);
    made.scale = scale;
    made.deviceFrame = QRect(static_cast<int>(x * scale), 0, static_cast<int>(width * scale),
                             static_cast<int>(height * scale));
    return made;
}

} // namespace zeph
