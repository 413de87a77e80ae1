// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Port.h"

#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace zeph {

/// One line of a menu. Without a text it is a separator; without an action it can't be chosen.
struct MenuItem {
    QString text = {};
    QString key = {}; ///< pressed together with Ctrl, such as ","; empty for none
    std::function<void()> action = {};
};

/// What stands in the tray; its end takes it away.
class StatusItem : public Port {};

/// The desktop's tray. Main thread only; nothing here waits.
class StatusBar : public Port {
public:
    /// An item with a symbol in the panel's own colour. It is there whenever the desktop has a tray
    /// for it, also one that comes later or restarts. `description` is its accessible name.
    virtual std::unique_ptr<StatusItem> makeItem(const QString &symbol, const QString &description,
                                                 std::vector<MenuItem> menu) = 0;
};

} // namespace zeph
