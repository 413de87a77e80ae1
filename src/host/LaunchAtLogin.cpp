// SPDX-License-Identifier: MIT
#include "host/LaunchAtLogin.h"

#include "base/Log.h"
#include "ports/LoginItem.h"

namespace zeph {

bool LaunchAtLogin::isEnabled() const {
    return m_item.isEnabled();
}

void LaunchAtLogin::setEnabled(bool enabled, std::function<void(bool)> done) {
    const auto tell = [done = std::move(done)](bool holds) {
        if (done) {
            done(holds);
        }
    };
    if (m_item.isEnabled() == enabled) {
        tell(true);
        return;
    }
    m_item.setEnabled(enabled, [enabled, tell](const std::optional<QString> &error) {
        if (error) {
            qCWarning(logSystem, "LaunchAtLogin: failed to %s: %s", enabled ? "enable" : "disable",
                      qPrintable(*error));
        }
        tell(!error);
    });
}

} // namespace zeph
