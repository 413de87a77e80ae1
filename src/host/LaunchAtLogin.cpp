// SPDX-License-Identifier: MIT
#include "host/LaunchAtLogin.h"

#include "ports/LoginItem.h"

#include <cstdio>

namespace zeph {

namespace {

void printFailure(const char *wish, const QString &error) {
    std::printf("LaunchAtLogin: failed to %s: %s\n", wish, qPrintable(error));
    std::fflush(stdout);
}

} // namespace

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
            printFailure(enabled ? "enable" : "disable", *error);
        }
        tell(!error);
    });
}

void LaunchAtLogin::renew() {
    m_item.renew([](const std::optional<QString> &error) {
        if (error) {
            printFailure("enable", *error);
        }
    });
}

} // namespace zeph
