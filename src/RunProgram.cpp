// SPDX-License-Identifier: MIT
#include "RunProgram.h"

#include "ambient/LocationManager.h"
#include "core/NotificationCenter.h"
#include "core/ZephApp.h"
#include "history/UsageStore.h"
#include "integrations/accounts/IntegrationsStore.h"
#include "integrations/accounts/Keychain.h"
#include "platform/WindowServer.h"
#include "platform/icu/IcuCalendar.h"
#include "platform/icu/IcuFormatters.h"
#include "platform/linux/LinuxPlatform.h"
#include "platform/linux/dbus/SingleInstance.h"
#include "platform/linux/proc/UnixSignals.h"
#include "platform/linux/x11/X11Display.h"
#include "presentation/painting/QtTextMetrics.h"
#include "presentation/painting/ScenePainter.h"
#include "presentation/painting/SymbolLibrary.h"
#include "presentation/preferences/PreferencesStore.h"

#include <QDBusConnection>
#include <QEventLoop>
#include <QGuiApplication>
#include <QStandardPaths>

#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

// Together within the half second that an end may take.
constexpr std::chrono::milliseconds secretsPatience{150};
constexpr std::chrono::milliseconds tasksPatience{250};

QString folder(QStandardPaths::StandardLocation base) {
    return QStandardPaths::writableLocation(base) + u"/Zeph"_s;
}

// The toolkit's own connection ends the process by exit() when it is the first to notice that the
// X server is gone. What was counted is saved on that way too.
const std::function<void()> *saveEverything = nullptr;

void saveAtExit() {
    if (saveEverything != nullptr) {
        (*saveEverything)();
        std::fflush(stdout);
        _exit(EXIT_SUCCESS);
    }
}

int runPrimary(const ProgramSettings &settings) {
    const IcuCalendar calendar;
    const IcuFormatters formatters;
    const auto platform = LinuxPlatform::create(
        folder(QStandardPaths::GenericConfigLocation) + u"/defaults.json"_s, calendar, formatters);
    if (!platform) {
        std::fputs("tavi: the X server keeps pixels in no form that can be painted\n", stderr);
        return EXIT_FAILURE;
    }
    const Platform &ports = platform->ports();
    NotificationCenter notifications;
    PreferencesStore preferences(ports.userDefaults, notifications, formatters);
    UsageStore usageStore(folder(QStandardPaths::GenericDataLocation), ports.clock, calendar);
    Keychain keychain(ports.secureStore, ports.userDefaults);
    IntegrationsStore integrations(ports.userDefaults, keychain, notifications, ports.runLoop,
                                   ports.taskExecutor);
    LocationManager location(&ports.locationClient, &ports.geocoder);
    const IcuCalendar gregorian(u"en_US"_s);
    const QtTextMetrics textMetrics;
    SymbolLibrary symbols;
    ScenePainter painter(textMetrics, symbols);
    ZephApp app(AppServices{ports, notifications, preferences, usageStore, integrations, keychain,
                            location, settings.endpoints, settings.refreshPeriod, gregorian,
                            textMetrics, painter});

    const UnixSignals signals([](int) { QCoreApplication::quit(); });
    ports.windowServer.setLostHandler([] { QCoreApplication::quit(); });
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, [&app] { app.terminate(); });
    const std::function<void()> save = [&] {
        app.terminate();
        platform->cancelRequests(); // they hold the threads that secrets may wait for
        integrations.finish(secretsPatience);
    };
    saveEverything = &save;
    std::atexit(saveAtExit);

    app.launch();
    QCoreApplication::exec();
    save();
    saveEverything = nullptr;
    if (!platform->finishTasks(tasksPatience)) {
        // A task hangs in the system. Everything is saved, and it can't be waited for.
        std::fflush(stdout);
        _exit(EXIT_SUCCESS);
    }
    return EXIT_SUCCESS;
}

/// Tells a running program that it was started again, or takes its place when it is just ending.
InstanceRole settleRole(SingleInstance &instance) {
    InstanceRole role = instance.claim();
    if (role == InstanceRole::secondary) {
        QEventLoop waiting;
        instance.activateOrSucceedOwner([&](InstanceRole settled) {
            role = settled;
            waiting.quit();
        });
        waiting.exec();
    }
    return role;
}

} // namespace

int runProgram(char **arguments, const ProgramSettings &settings) {
    auto display = std::make_unique<X11Display>();
    if (!display->isReachable()) {
        std::fputs("tavi: there is no X display to draw on\n", stderr);
        return EXIT_FAILURE;
    }
    // The program takes no options; the toolkit would take its own from the command line.
    int argumentCount = 1;
    // On a Wayland desktop too: the wallpaper's windows are X11 ones.
    qputenv("QT_QPA_PLATFORM", "xcb");
    QGuiApplication::setQuitOnLastWindowClosed(false);
    QGuiApplication::setDesktopFileName(u"com.tavi.Tavi"_s);
    QGuiApplication::setApplicationDisplayName(u"Tavi"_s);
    const QGuiApplication toolkit(argumentCount, arguments);
    display.reset();

    SingleInstance instance(QDBusConnection::sessionBus(), [](const ApplicationRequest &) {
        // Being started again asks for nothing that is here yet.
    });
    return settleRole(instance) == InstanceRole::secondary ? EXIT_SUCCESS : runPrimary(settings);
}

} // namespace zeph
