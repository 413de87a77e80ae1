// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxPlatform.h"

#include "platform/icu/SystemZone.h"
#include "platform/linux/Consent.h"
#include "platform/linux/DesktopEntries.h"
#include "platform/linux/dbus/NetworkManagerWiFi.h"
#include "platform/linux/defaults/JsonUserDefaults.h"
#include "platform/linux/eds/EdsEventStore.h"
#include "platform/linux/focus/FocusSource.h"
#include "platform/linux/focus/LinuxFocusFile.h"
#include "platform/linux/folder/FolderListing.h"
#include "platform/linux/folder/LinuxDesktopFolder.h"
#include "platform/linux/folder/UserDirs.h"
#include "platform/linux/http/PluggedHttpClient.h"
#include "platform/linux/location/GeoClueLocationClient.h"
#include "platform/linux/location/LocationPermission.h"
#include "platform/linux/location/ZoneCity.h"
#include "platform/linux/places/CityLister.h"
#include "platform/linux/places/OfflineGeocoder.h"
#include "platform/linux/power/BluezBatteries.h"
#include "platform/linux/power/LinuxAccessories.h"
#include "platform/linux/power/LinuxPowerSources.h"
#include "platform/linux/power/UPowerSources.h"
#include "platform/linux/proc/NetlinkInterfaces.h"
#include "platform/linux/proc/ProcHostStatistics.h"
#include "platform/linux/proc/StatvfsVolume.h"
#include "platform/linux/proc/SystemClock.h"
#include "platform/linux/qt/QtRunLoop.h"
#include "platform/linux/qt/QtScreens.h"
#include "platform/linux/qt/QtTaskExecutor.h"
#include "platform/linux/secret/SecretServiceStore.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11InputEvents.h"
#include "platform/linux/x11/X11Monitors.h"
#include "platform/linux/x11/X11ReservedSpace.h"
#include "platform/linux/x11/X11WindowServer.h"
#include "platform/linux/x11/X11Workspace.h"

#include <QDBusConnection>
#include <QDir>
#include <QFile>
#include <QLocale>
#include <QStandardPaths>

namespace zeph {

namespace {

const QString supplies = QStringLiteral("/sys/class/power_supply");

QByteArray fileName(const QString &path) {
    return QFile::encodeName(path);
}

} // namespace

struct LinuxPlatform::Adapters {
    Adapters(std::unique_ptr<X11Connection> connection, std::unique_ptr<X11WindowServer> server,
             const QString &defaultsPath, const Calendar &userCalendar,
             const Formatters &userFormatters)
        : x11(std::move(connection)),
          windowServer(std::move(server)),
          defaults(defaultsPath),
          reservedSpace(*x11),
          screens([this](const QString &name) { return monitorGeometry(*x11, name); },
                  [this](const QRect &monitor) { return reservedSpace.margins(monitor); }),
          desktopEntries(QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation),
                         QLocale::system().name(), executor, runLoop),
          workspace(*x11, desktopEntries),
          inputConsent(Consent::forInput(defaults)),
          inputEvents(*x11, screens, runLoop, [this] { return inputConsent.isGranted(); }),
          eventStore(clock, userCalendar, runLoop, defaults),
          locationPermission(defaults),
          ports{.clock = clock,
                .calendar = userCalendar,
                .formatters = userFormatters,
                .runLoop = runLoop,
                .taskExecutor = executor,
                .accountExecutor = accountExecutor,
                .userDefaults = defaults,
                .workspace = workspace,
                .inputEvents = inputEvents,
                .hostStatistics = hostStatistics,
                .networkInterfaces = interfaces,
                .wifi = wifi,
                .volume = volume,
                .powerSources = powerSources,
                .accessories = accessories,
                .desktopFolder = desktopFolder,
                .focusFile = focusFile,
                .eventStore = eventStore,
                .locationClient = locationClient,
                .geocoder = geocoder,
                .httpClient = httpClient,
                .secureStore = secureStore,
                .screens = screens,
                .windowServer = *windowServer} {
        reservedSpace.setChangeHandler([this] { screens.noteReservedMargins(); });
    }

    std::unique_ptr<X11Connection> x11;
    std::unique_ptr<X11WindowServer> windowServer;
    SystemClock clock;
    QtRunLoop runLoop;
    JsonUserDefaults defaults;
    QtTaskExecutor executor;
    QtTaskExecutor accountExecutor;
    X11ReservedSpace reservedSpace;
    QtScreens screens;
    DesktopEntries desktopEntries;
    X11Workspace workspace;
    Consent inputConsent;
    X11InputEvents inputEvents;
    ProcHostStatistics hostStatistics;
    NetlinkInterfaces interfaces;
    NetworkManagerWiFi wifi{QDBusConnection::systemBus()};
    StatvfsVolume volume;
    UPowerSources upower{QDBusConnection::systemBus()};
    LinuxPowerSources powerSources{upower, supplies, executor, runLoop};
    BluezBatteries bluez{QDBusConnection::systemBus()};
    LinuxAccessories accessories{supplies, upower, bluez, runLoop};
    LinuxDesktopFolder desktopFolder{findDesktopFolder(fileName(QStandardPaths::writableLocation(
                                                           QStandardPaths::GenericConfigLocation)),
                                                       fileName(QDir::homePath())),
                                     executor, runLoop, listFolder};
    LinuxFocusFile focusFile{focusSourceFor(qEnvironmentVariable("XDG_CURRENT_DESKTOP")),
                             QDBusConnection::sessionBus(), executor, runLoop};
    EdsEventStore eventStore;
    LocationPermission locationPermission;
    GeoClueLocationClient locationClient{QDBusConnection::systemBus(), locationPermission,
                                         [] { return zoneCity(SystemZone().id()); }};
    OfflineGeocoder geocoder{executor, runLoop, cityListerPath()};
    PluggedHttpClient httpClient;
    SecretServiceStore secureStore;
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

void LinuxPlatform::cancelRequests() {
    m_adapters->httpClient.cancelAll();
}

bool LinuxPlatform::finishTasks(std::chrono::milliseconds patience) {
    m_adapters->httpClient.cancelAll();
    m_adapters->secureStore.cancelAll();
    m_adapters->accountExecutor.beginShutdown();
    return m_adapters->executor.finish(patience) &&
           m_adapters->accountExecutor.finish(std::chrono::milliseconds(50)) &&
           m_adapters->eventStore.finish(std::chrono::milliseconds(50));
}

} // namespace zeph
