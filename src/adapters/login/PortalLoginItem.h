// SPDX-License-Identifier: MIT
#pragma once

#include "ports/LoginItem.h"

#include <QDBusConnection>

#include <memory>
#include <vector>

namespace zeph {

class BackgroundRequest;
class UserDefaults;

/// The start with the session of a program in a sandbox, by the desktop's portal. The portal does
/// not tell what is set, so that its last answer is kept.
class PortalLoginItem : public LoginItem {
public:
    PortalLoginItem(QDBusConnection sessionBus, UserDefaults &defaults);
    ~PortalLoginItem() override;

    bool isEnabled() const override;
    void setEnabled(bool enabled,
                    std::function<void(const std::optional<QString> &error)> done) override;

    /// Nothing: the portal starts the program by its name.
    void renew(std::function<void(const std::optional<QString> &error)> done) override;

private:
    QDBusConnection m_bus;
    UserDefaults &m_defaults;
    std::vector<std::unique_ptr<BackgroundRequest>> m_requests; // answered ones too, till the next
};

/// Whether `executable`, the running program, is kept apart from the session's files by Flatpak or
/// Snap. `root` is the root of the file system.
bool runsInSandbox(const QString &executable, const QString &root = {});

} // namespace zeph
