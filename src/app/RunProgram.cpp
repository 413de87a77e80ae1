// SPDX-License-Identifier: MIT
#include "app/RunProgram.h"

#include "adapters/bus/HungBuses.h"
#include "adapters/bus/SingleInstance.h"
#include "adapters/kernel/Heap.h"
#include "adapters/kernel/UnixSignals.h"
#include "adapters/locale/IcuCalendar.h"
#include "adapters/locale/IcuFormatters.h"
#include "adapters/session/loss/LostDisplay.h"
#include "adapters/session/open/OpenSession.h"
#include "adapters/session/wayland/WaylandDisplay.h"
#include "adapters/session/x11/X11Display.h"
#include "adapters/storage/FolderLock.h"
#include "app/DesktopFont.h"
#include "app/DisplayLoss.h"
#include "app/EndBudget.h"
#include "app/LinuxPlatform.h"
#include "app/OwnFolder.h"
#include "app/RequestInbox.h"
#include "app/StartClaim.h"
#include "app/Windows.h"
#include "app/ZephApp.h"
#include "base/NotificationCenter.h"
#include "base/StartedThread.h"
#include "drawing/painting/OwnFonts.h"
#include "drawing/painting/QtTextMetrics.h"
#include "drawing/painting/ScenePainter.h"
#include "drawing/painting/SymbolLibrary.h"
#include "history/HistoryAhead.h"
#include "history/UsageStore.h"
#include "ports/RunLoop.h"
#include "ports/WindowServer.h"
#include "services/accounts/IntegrationsStore.h"
#include "services/accounts/Keychain.h"
#include "services/ambient/LocationManager.h"
#include "settings/PreferencesStore.h"

#include <QApplication>
#include <QDBusConnection>
#include <QThread>

#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <optional>
#include <thread>
#include <utility>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

// Of the half second that an end may take; the rest is for what can't be cut short.
constexpr std::chrono::milliseconds endBudget{400};
// Secrets wait for a keyring, and what hangs there must not take all of it.
constexpr std::chrono::milliseconds secretsPatience{150};

// By then the display system has the first frame.
constexpr std::chrono::milliseconds tasksRest{40};
// By then the first round of all sensors and services is over.
constexpr std::chrono::seconds startEnd{12};
constexpr std::chrono::milliseconds endPatience{1000}; // for another program to end

// A bus that is well answers within milliseconds, and somewhat later while its user is logged in.
constexpr std::chrono::milliseconds busPatience{2000};

/// What is to be done however the program ends.
struct Ending {
    std::function<void()> save;
    DisplayLoss &loss;
};

// Where a library ends the process by exit(), what was counted is saved on that way too.
const Ending *openEnding = nullptr;

/// After everything was saved, where there is no way back.
[[noreturn]] void leaveProcess(const DisplayLoss &loss) {
    loss.startAnewIfLost(UnixSignals::haveCome());
    std::fflush(stdout);
    _exit(EXIT_SUCCESS);
}

void leaveAfterLoss() {
    if (openEnding != nullptr) {
        openEnding->save();
        openEnding->loss.note();
        leaveProcess(openEnding->loss);
    }
}

QtMessageHandler printMessage = nullptr;

// More than an end may take.
constexpr unsigned long lastWordsPatience = 1000; // milliseconds

// The toolkit ends the process when it is the first to notice that its display is gone, right after
// it has complained. Of X that is by exit(), which takes libraries away from threads that still
// work before it comes to us; of Wayland by _exit() on a thread of the plug-in's own. Nothing can
// be heard before that, so the message is what is listened to, and such a thread is kept waiting
// there.
void saveAfterLastWords(QtMsgType kind, const QMessageLogContext &context, const QString &message) {
    printMessage(kind, context, message);
    if (!message.startsWith("The Wayland connection"_L1) &&
        !message.startsWith("The X11 connection broke"_L1)) {
        return;
    }
    if (QThread::currentThread() == qApp->thread()) {
        leaveAfterLoss();
    } else {
        QMetaObject::invokeMethod(qApp, leaveAfterLoss, Qt::QueuedConnection);
        QThread::msleep(lastWordsPatience);
    }
}

bool isToolkitOnWayland() {
    return QGuiApplication::platformName().startsWith("wayland"_L1);
}

/// Not by quit(), which asks the windows first, and one of them may refuse.
void endProgram() {
    QCoreApplication::exit(EXIT_SUCCESS);
}

/// Takes the bus's word for it out of the environment, which other programs inherit.
RequestInbox::Start takeStart() {
    const bool isByBus = qEnvironmentVariableIsSet("DBUS_STARTER_BUS_TYPE");
    qunsetenv("DBUS_STARTER_BUS_TYPE");
    qunsetenv("DBUS_STARTER_ADDRESS");
    return isByBus ? RequestInbox::Start::byRequest : RequestInbox::Start::byUser;
}

/// A variable of the environment with another value, or without one, for a while. Programs that
/// are started later inherit the user's own.
class PassingVariable {
public:
    PassingVariable(const char *name, const QByteArray &value)
        : m_name(name), m_wasSet(qEnvironmentVariableIsSet(name)), m_was(qgetenv(name)) {
        value.isNull() ? qunsetenv(name) : qputenv(name, value);
    }
    ~PassingVariable() { m_wasSet ? qputenv(m_name, m_was) : qunsetenv(m_name); }
    PassingVariable(const PassingVariable &) = delete;
    PassingVariable &operator=(const PassingVariable &) = delete;

private:
    const char *m_name;
    bool m_wasSet;
    QByteArray m_was;
};

std::unique_ptr<QApplication> makeToolkit(const QByteArray &plugin, int &argumentCount,
                                          char **arguments) {
    const PassingVariable platform("QT_QPA_PLATFORM", plugin);
    // A saved session would start the program a second time, beside its entry for the login.
    const PassingVariable session("SESSION_MANAGER", QByteArray());
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setDesktopFileName(u"com.tavi.Tavi"_s);
    QApplication::setApplicationName(u"com.tavi.Tavi"_s); // the class of the windows
    QApplication::setApplicationDisplayName(u"Tavi"_s);
    auto toolkit = std::make_unique<QApplication>(argumentCount, arguments);
    QApplication::setFont(desktopFont(QApplication::font()));
    return toolkit;
}

/// Launches `app` and runs until the end.
int runToTheEnd(ZephApp &app, LinuxPlatform &platform, const Ending &ending,
                const EndBudget &budget) {
    openEnding = &ending;
    std::atexit(leaveAfterLoss);
    // Known before the first message of any thread comes this way.
    printMessage = qInstallMessageHandler(nullptr);
    qInstallMessageHandler(saveAfterLastWords);
    app.launch();
    platform.ports().runLoop.after(tasksRest, [&platform] { platform.releaseTasks(); });
    platform.ports().runLoop.after(startEnd, returnFreedMemory);
    QCoreApplication::exec();
    ending.save();
    openEnding = nullptr;
    platform.leaveDesktop(budget);
    // Before the wait: what is cut short must not leave our picture behind.
    app.takeDownWallpaper();
    if (!platform.finishTasks(budget)) {
        // A task hangs in the system. Everything is saved, and it can't be waited for.
        leaveProcess(ending.loss);
    }
    return EXIT_SUCCESS;
}

int runOn(LinuxPlatform *platform, const ProgramSettings &settings, RequestInbox &requests,
          DisplayLoss &displayLoss, HistoryAhead &history) {
    const Platform &ports = platform->ports();
    NotificationCenter notifications;
    PreferencesStore preferences(ports.userDefaults, notifications, ports.formatters);
    UsageStore usageStore(history, ports.clock, ports.calendar);
    Keychain keychain(ports.secureStore, ports.userDefaults);
    IntegrationsStore integrations(ports.userDefaults, keychain, notifications, ports.runLoop,
                                   ports.taskExecutor);
    LocationManager location(&ports.locationClient, &ports.geocoder);
    const QtTextMetrics textMetrics;
    SymbolLibrary symbols;
    ScenePainter painter(textMetrics, symbols);
    ZephApp app(AppServices{
        .platform = ports,
        .notifications = notifications,
        .preferences = preferences,
        .usageStore = usageStore,
        .integrations = integrations,
        .keychain = keychain,
        .location = location,
        .endpoints = settings.endpoints,
        .refreshPeriod = settings.refreshPeriod,
        .textMetrics = textMetrics,
        .painter = painter,
        .requests = requests,
        .shellPorts = [platform]() -> const ShellPorts & { return platform->shellPorts(); },
        .makeWindows =
            [platform](const WindowParts &parts) {
                return std::make_unique<Windows>(parts, platform->consents());
            },
        .terminate = endProgram});

    const UnixSignals signals([](int) { endProgram(); });
    const Subscription loss = ports.windowServer.subscribeToLoss([&displayLoss] {
        if (isToolkitOnWayland()) { // what the toolkit does by itself is not waited for
            leaveAfterLoss();
        }
        displayLoss.note();
        endProgram();
    });
    EndBudget budget(endBudget);
    const auto terminate = [&app, &budget] {
        budget.begin();
        app.terminate();
    };
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, terminate);
    const auto save = [&] {
        terminate();
        platform->cancelRequests(); // they hold the threads that secrets may wait for
        integrations.finish(budget.left(secretsPatience));
    };
    return runToTheEnd(app, *platform, {save, displayLoss}, budget);
}

/// The fonts of the wallpaper, looked for beside the main thread. Nothing may change the
/// environment meanwhile, which is read.
class FontSearch {
public:
    FontSearch() : m_thread(startedThread(&OwnFonts::use)) {}
    ~FontSearch() { finish(); }
    FontSearch(const FontSearch &) = delete;
    FontSearch &operator=(const FontSearch &) = delete;

    void finish() {
        if (m_thread && m_thread->joinable()) {
            m_thread->join();
        }
    }

private:
    std::optional<std::thread> m_thread;
};

/// Days and texts as the user's language and zone have them.
struct UserLocale {
    IcuCalendar calendar;
    IcuCalendar gregorian{u"en_US"_s};
    IcuFormatters formatters;
};

int runPrimary(const ProgramSettings &settings, RequestInbox &requests, StartClaim &claim,
               DisplayLoss &loss, const UserLocale &locale) {
    // While the bus does not answer nobody else can tell that the program runs already, and two
    // would write over each other.
    const FolderLock lock(ownFolder(QStandardPaths::GenericDataLocation), endPatience);
    if (lock.isHeldByAnother()) {
        if (claim.callRunning()) {
            return EXIT_SUCCESS;
        }
        std::fputs("tavi: it runs already, and the session bus does not lead to it\n", stderr);
        return EXIT_FAILURE;
    }
    HistoryAhead history(ownFolder(QStandardPaths::GenericDataLocation));
    const LinuxPlatform::Created created = LinuxPlatform::create(
        ownFolder(QStandardPaths::GenericConfigLocation) + u"/defaults.json"_s, locale.calendar,
        locale.gregorian, locale.formatters);
    if (!created.platform) {
        std::fprintf(stderr, "tavi: %s\n", qPrintable(created.refusal));
        return EXIT_FAILURE;
    }
    return runOn(created.platform.get(), settings, requests, loss, history);
}

/// One run from the start to the end, over the X server that was found already, if any.
int runOnce(char **arguments, const ProgramSettings &settings, DisplayLoss &loss,
            std::unique_ptr<X11Display> server) {
    const RequestInbox::Start start = takeStart();
    avoidHungBuses(busPatience);
    FontSearch fonts;
    if (!server) {
        server = std::make_unique<X11Display>();
    }
    const bool hasX11 = server->isReachable();
    const QByteArray compositor = qgetenv("WAYLAND_DISPLAY");
    const QByteArray plugin = toolkitPlatform(hasX11, !hasX11 && compositorAnswers(compositor));
    if (plugin.isEmpty()) {
        std::fputs(compositor.isEmpty()
                       ? "tavi: there is no X display to draw on\n"
                       : "tavi: there is no X display and no Wayland compositor to draw on\n",
                   stderr);
        return EXIT_FAILURE;
    }
    const UserLocale locale;
    fonts.finish();
    // The wallpaper takes no options; the toolkit would take its own from the command line.
    int argumentCount = 1;
    const auto toolkit = makeToolkit(plugin, argumentCount, arguments);
    server.reset();

    RequestInbox requests(start);
    SingleInstance instance(
        QDBusConnection::sessionBus(),
        [&requests](const ApplicationRequest &request) { requests.take(request); });
    StartClaim claim(instance, requests);
    return claim.isToRun() ? runPrimary(settings, requests, claim, loss, locale) : EXIT_SUCCESS;
}

} // namespace

int runProgram(char **arguments, const ProgramSettings &settings) {
    DisplayLoss loss(arguments);
    ReturnedDisplay display;
    if (loss.isReturn()) {
        display = waitForLostDisplay();
        if (!display.isThere) {
            return EXIT_SUCCESS; // the session is over, and everything was saved
        }
    }
    loss.noteStart();
    const int status = runOnce(arguments, settings, loss, std::move(display.server));
    loss.startAnewIfLost(UnixSignals::haveCome());
    return status;
}

} // namespace zeph
