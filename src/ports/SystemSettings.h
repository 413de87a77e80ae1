// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Port.h"

class QUrl;

namespace zeph {

/// The desktop's own settings program. Its pages go by links of our own, `zeph-settings:PAGE`, where
/// PAGE is "accessibility", "location", "calendar", "reminders" or "privacy". Main thread only;
/// nothing here waits.
class SystemSettings : public Port {
public:
    /// Whether this desktop has a page for that.
    virtual bool canOpen(const QUrl &link) const = 0;

    /// Opens the page that a settings link names; a page that does not exist opens nothing.
    virtual void open(const QUrl &link) = 0;
};

} // namespace zeph
