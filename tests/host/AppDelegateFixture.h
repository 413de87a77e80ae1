// SPDX-License-Identifier: MIT
#pragma once

#include "app/AppDelegate.h"
#include "app/RequestInbox.h"
#include "app/WindowParts.h"
#include "base/NotificationCenter.h"
#include "drawing/painting/QtTextMetrics.h"
#include "drawing/painting/ScenePainter.h"
#include "drawing/painting/SymbolLibrary.h"
#include "host/DesktopWindow.h"
#include "services/accounts/IntegrationsStore.h"
#include "services/accounts/Keychain.h"
#include "services/web/Endpoints.h"
#include "settings/PreferencesStore.h"
#include "support/FakePlatform.h"
#include "support/FakeShell.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <utility>

namespace zeph {

/// A delegate on a machine and a desktop of fakes, with two screens.
class AppDelegateTest : public testing::Test, public FakePlatform {
protected:
    AppDelegateTest() {
        screens.screens = {screen(QStringLiteral("A"), 1, 640, 400),
                           screen(QStringLiteral("B"), 2, 640, 400, 640)};
    }

    void launch() {
        delegate.applicationDidFinishLaunching();
        loop.drain();
    }

    void settle() {
        do {
            executor.runAll();
            loop.drain();
        } while (executor.waiting() > 0);
    }

    std::vector<std::shared_ptr<SurfaceLog>> living() const {
        std::vector<std::shared_ptr<SurfaceLog>> result;
        std::copy_if(windowServer.logs.begin(), windowServer.logs.end(), std::back_inserter(result),
                     [](const auto &log) { return log->alive; });
        return result;
    }

    AppServices services() {
        return {.platform = platform,
                .notifications = notifications,
                .preferences = preferences,
                .usageStore = *usageStore,
                .integrations = integrations,
                .keychain = keychain,
                .location = location,
                .endpoints = endpoints,
                .refreshPeriod = std::chrono::minutes(10),
                .textMetrics = textMetrics,
                .painter = painter,
                .requests = requests,
                .shellPorts = [this]() -> const ShellPorts & {
                    shell.story.emplace_back("shell made");
                    return shell.ports;
                },
                .makeWindows = [this](const WindowParts &) { return shell.makeWindows(); },
                .terminate = [this] { ++terminations; }};
    }

    /// What the shell was asked to do since the last call.
    ShellStory told() { return std::exchange(shell.story, {}); }

    Endpoints endpoints;
    FakeShell shell;
    RequestInbox requests{RequestInbox::Start::byUser};
    int terminations = 0;
    NotificationCenter notifications;
    PreferencesStore preferences{defaults, notifications, formatters};
    QtTextMetrics textMetrics;
    SymbolLibrary symbols;
    ScenePainter painter{textMetrics, symbols};
    Keychain keychain{secrets, defaults};
    IntegrationsStore integrations{defaults, keychain, notifications, loop, executor};
    AppDelegate delegate{services()};
};

} // namespace zeph
