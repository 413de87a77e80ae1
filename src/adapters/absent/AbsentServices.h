// SPDX-License-Identifier: MIT
#pragma once

#include "ports/DesktopAppearance.h"
#include "ports/DesktopShell.h"
#include "ports/LoginItem.h"
#include "ports/SystemSettings.h"
#include "ports/UpdateFramework.h"
#include "ports/VirtualDesktops.h"

#include <QUrl>

/// What a desktop without the service in question offers.
namespace zeph::absent {

class LoginItem : public zeph::LoginItem {
public:
    bool isEnabled() const override { return false; }
    void setEnabled(bool, std::function<void(const std::optional<QString> &)> done) override {
        done(QStringLiteral("there is nothing that starts programs with the session"));
    }
};

class UpdateFramework : public zeph::UpdateFramework {
public:
    const UpdateStatus &status() const override { return m_status; }
    Subscription subscribe(std::function<void()> handler) override {
        return m_changes.subscribe(std::move(handler));
    }
    void checkForUpdates() override {}
    void install() override {}
    void cancel() override {}

private:
    UpdateStatus m_status{.phase = UpdateStatus::Phase::noService};
    ChangePublisher m_changes;
};

class DesktopAppearance : public zeph::DesktopAppearance {
public:
    Scheme scheme() const override { return Scheme::unknown; }
    bool wantsHighContrast() const override { return false; }
    bool wantsMotion() const override { return true; }
    Subscription subscribe(std::function<void()> handler) override {
        return m_changes.subscribe(std::move(handler));
    }

private:
    ChangePublisher m_changes;
};

class DesktopShell : public zeph::DesktopShell {
public:
    bool canHideIcons() const override { return false; }
    bool areIconsShown() const override { return true; }
    void setIconsShown(bool) override {}
    void relaunch() override {}
};

class SystemSettings : public zeph::SystemSettings {
public:
    void open(const QUrl &) override {}
};

class VirtualDesktops : public zeph::VirtualDesktops {
public:
    std::vector<VirtualDesktop> all() const override { return {}; }
    Subscription subscribe(std::function<void()> handler) override {
        return m_changes.subscribe(std::move(handler));
    }

private:
    ChangePublisher m_changes;
};

} // namespace zeph::absent
