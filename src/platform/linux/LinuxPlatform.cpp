// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxPlatform.h"

#include "platform/linux/Consent.h"
#include "platform/linux/DesktopEntries.h"
#include "platform/linux/dbus/NetworkManagerWiFi.h"
#include "platform/linux/defaults/JsonUserDefaults.h"
#include "platform/linux/power/LinuxPowerSources.h"
#include "platform/linux/power/UPowerSources.h"
#include "platform/linux/proc/NetlinkInterfaces.h"
#include "platform/linux/proc/ProcHostStatistics.h"
#include "platform/linux/proc/StatvfsVolume.h"
#include "platform/linux/proc/SystemClock.h"
#include "platform/linux/qt/QtRunLoop.h"
#include "platform/linux/qt/QtScreens.h"
#include "platform/linux/qt/QtTaskExecutor.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11InputEvents.h"
#include "platform/linux/x11/X11Monitors.h"
#include "platform/linux/x11/X11WindowServer.h"
#include "platform/linux/x11/X11Workspace.h"

#include <QDBusConnection>
#include <QLocale>
#include <QStandardPaths>

namespace zeph {

namespace {

// The kernel's battery files are all that is read away from the main thread.
constexpr int backgroundThreads = 2;

} // namespace

struct LinuxPlatform::Adapters {
    Adapters(std::unique_ptr<X11Connection> connection, std::unique_ptr<X11WindowServer> server,
             const QString &defaultsPath, const Calendar &userCalendar,
             const Formatters &userFormatters)
        : x11(std::move(connection)),
          windowServer(std::move(server)),
          defaults(defaultsPath),
          screens([display = x11.get()](const QString &name) {
              return monitorGeometry(*display, name);
          }),
          desktopEntries(QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation),
                         QLocale::system().name()),
          workspace(*x11, desktopEntries),
          inputConsent(Consent::forInput(defaults)),
          inputEvents(*x11, screens, [this] { return inputConsent.isGranted(); }),
          wifi(QDBusConnection::systemBus()),
          upower(QDBusConnection::systemBus()),
          powerSources(upower, QStringLiteral("/sys/class/power_supply"), executor, runLoop),
          ports{clock,     userCalendar, userFormatters, runLoop,      defaults,
                workspace, inputEvents,  hostStatistics, interfaces,   wifi,
                volume,    powerSources, screens,        *windowServer} {}

    std::unique_ptr<X11Connection> x11;
    std::unique_ptr<X11WindowServer> windowServer;
    SystemClock clock;
    QtRunLoop runLoop;
    JsonUserDefaults defaults;
    QtScreens screens;
    DesktopEntries desktopEntries;
    X11Workspace workspace;
    Consent inputConsent;
    X11InputEvents inputEvents;
    ProcHostStatistics hostStatistics;
    NetlinkInterfaces interfaces;
    NetworkManagerWiFi wifi;
    StatvfsVolume volume;
    QtTaskExecutor executor{backgroundThreads};
    UPowerSources upower;
    LinuxPowerSources powerSources;
    Platform ports;
};

LinuxPlatform::LinuxPlatform(std::unique_ptr<Adapters> adapters)
    : m_adapters(std::move(adapters)) {}

LinuxPlatform::~LinuxPlatform() = default;

std::unique_ptr<LinuxPlatform> LinuxPlatform::create(const QString &defaultsPath,
                                                     const Calendar &calendar,
                                                     const Formatters &formatters) {
    auto connection = X11Connection::open();
    auto server = connection ? X11WindowServer::create(*connection) : nullptr;
    if (!server) {
        return nullptr;
    }
    auto adapters = std::make_unique<Adapters>(std::move(connection), std::move(server),
                                               defaultsPath, calendar, formatters);
    return std::unique_ptr<LinuxPlatform>(new LinuxPlatform(std::move(adapters)));
}

const Platform &LinuxPlatform::ports() const {
    return m_adapters->ports;
}

} // namespace zeph
