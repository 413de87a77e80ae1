// SPDX-License-Identifier: MIT
#pragma once

#include "base/Background.h"
#include "drawing/painting/QtTextMetrics.h"
#include "drawing/painting/ScenePainter.h"
#include "drawing/painting/SymbolLibrary.h"
#include "golden/SampleDay.h"
#include "host/CalendarPermission.h"
#include "host/DesktopIconsManager.h"
#include "host/LaunchAtLogin.h"
#include "host/PermissionsManager.h"
#include "ports/DesktopAppearance.h"
#include "ports/DesktopShell.h"
#include "ports/LoginItem.h"
#include "ports/UpdateFramework.h"
#include "services/accounts/IntegrationsStore.h"
#include "services/accounts/Keychain.h"
#include "services/refresh/ServiceCheck.h"
#include "settings/Consents.h"
#include "support/FakeEventStore.h"
#include "support/FakeInputEvents.h"
#include "support/FakeLocation.h"
#include "support/FakeScreens.h"
#include "support/FakeSecureStore.h"
#include "support/FakeSystemSettings.h"
#include "support/FakeVirtualDesktops.h"
#include "support/FakeWindowServer.h"
#include "support/ManualRunLoop.h"
#include "support/ManualTaskExecutor.h"
#include "ui/settings/SettingsContext.h"
#include "widgets/RootWallpaperView.h"

namespace zeph {

/// An appearance that the test chooses; without motion, so that every change is there at once.
class FakeAppearance : public DesktopAppearance {
public:
    Scheme scheme() const override { return wantedScheme; }
    bool wantsHighContrast() const override { return highContrast; }
    bool wantsMotion() const override { return motion; }
    Subscription subscribe(std::function<void()> handler) override {
        return changes.subscribe(std::move(handler));
    }

    Scheme wantedScheme = Scheme::dark;
    bool highContrast = false;
    bool motion = false;
    ChangePublisher changes;
};

class FakeDesktopShell : public DesktopShell {
public:
    bool canHideIcons() const override { return false; }
    QString name() const override { return {}; }
    std::optional<IconSetting> iconSetting() const override { return std::nullopt; }
    ShellOutcome hideIcons() override { return ShellOutcome::unavailable; }
    ShellOutcome showIcons(const QString &) override { return ShellOutcome::unavailable; }
    ShellOutcome relaunch() override { return ShellOutcome::unavailable; }
};

class FakeLoginItem : public LoginItem {
public:
    bool isEnabled() const override { return enabled; }
    void setEnabled(bool isWanted,
                    std::function<void(const std::optional<QString> &error)> done) override {
        enabled = isWanted;
        done(std::nullopt);
    }
    void renew(std::function<void(const std::optional<QString> &error)> done) override {
        done(std::nullopt);
    }

    bool enabled = false;
};

class FakeUpdates : public UpdateFramework {
public:
    const UpdateStatus &status() const override { return told; }
    Subscription subscribe(std::function<void()> handler) override {
        return changes.subscribe(std::move(handler));
    }
    void checkForUpdates() override {}
    void install() override {}
    void cancel() override {}

    UpdateStatus told;
    ChangePublisher changes;
};

/// Everything that our windows show and change, of the sample day's user, on a display of
/// 1920 × 1080 points.
class SettingsFixture : public SampleDay {
protected:
    SettingsFixture() {
        input.trusted = false;
        permissions->refresh();
        screens.screens = {screen(QStringLiteral("one"), 1, 1920, 1080)};
        windowServer.setDrawingWay(
            {DrawingMechanism::rootPixmap,
             QStringLiteral("Xfce shares its desktop picture, so Tavi paints into it and your "
                            "icons stay visible and clickable.")});
    }

    ui::SettingsContext context() {
        return {.preferences = preferences,
                .integrations = integrations,
                .state = state,
                .defaults = defaults,
                .notifications = notificationCenter,
                .runLoop = loop,
                .clock = clock,
                .framing = framing,
                .screens = screens,
                .windowServer = windowServer,
                .virtualDesktops = virtualDesktops,
                .appearance = appearance,
                .permissions = permissions,
                .systemSettings = systemSettings,
                .launchAtLogin = launchAtLogin,
                .desktopIcons = desktopIcons,
                .updates = updates,
                .serviceCheck = serviceCheck,
                .wallpaper = wallpaper,
                .painter = painter};
    }

    ManualRunLoop loop{clock};
    ManualTaskExecutor executor;
    Background background = Background::over(executor, loop);
    FakeSecureStore secrets;
    Keychain keychain{secrets, defaults};
    IntegrationsStore integrations{defaults, keychain, notificationCenter, loop, executor};
    FakeScreens screens;
    FakeWindowServer windowServer;
    FakeVirtualDesktops virtualDesktops;
    FakeAppearance appearance;
    FakeInputEvents input;
    FakeLocationClient location;
    LocationAuthorization systemLocation = LocationAuthorization::notDetermined;
    FakeEventStore eventStore;
    CalendarPermission calendarPermission{eventStore};
    FakeSystemSettings systemSettings;
    Consents consents{defaults};
    std::shared_ptr<PermissionsManager> permissions =
        PermissionsManager::make({input, &location,
                                  [this] {
                                      auto fresh = std::make_unique<FakeLocationClient>();
                                      fresh->status = systemLocation;
                                      return fresh;
                                  },
                                  calendarPermission, systemSettings, loop, [] {}, consents});
    /// The sensors believe what the user allowed.
    Subscription trust =
        consents.input.subscribe([this] { input.setTrusted(consents.input.isGranted()); });
    FakeLoginItem loginItem;
    LaunchAtLogin launchAtLogin{loginItem};
    FakeDesktopShell shell;
    DesktopIconsManager desktopIcons{shell, defaults, background};
    FakeUpdates updates;
    ServiceCheck serviceCheck{background, {{}, integrations, keychain}};
    QtTextMetrics textMetrics;
    SymbolLibrary symbolLibrary;
    ScenePainter painter{textMetrics, symbolLibrary};
    RootWallpaperView wallpaper{state, preferences, usage, framing, textMetrics, {}};
};

} // namespace zeph
