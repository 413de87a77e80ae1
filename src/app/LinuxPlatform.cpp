// SPDX-License-Identifier: MIT
#include "app/LinuxPlatform.h"

#include "adapters/appearance/PortalAppearance.h"
#include "adapters/apps/DesktopEntries.h"
#include "adapters/bus/NetworkManagerWiFi.h"
#include "adapters/calendar/EdsEventStore.h"
#include "adapters/desktop/DesktopShells.h"
#include "adapters/desktop/PlasmaScript.h"
#include "adapters/desktop/ProgramIcons.h"
#include "adapters/desktop/SettingsPages.h"
#include "adapters/focus/FocusSource.h"
#include "adapters/focus/LinuxFocusFile.h"
#include "adapters/icons/ScreensBesideIcons.h"
#include "adapters/kernel/ProcHostStatistics.h"
#include "adapters/kernel/ProcNetworkInterfaces.h"
#include "adapters/kernel/StatvfsVolume.h"
#include "adapters/kernel/SystemClock.h"
#include "adapters/locale/SystemZone.h"
#include "adapters/login/AutostartEntry.h"
#include "adapters/login/PortalLoginItem.h"
#include "adapters/loop/QtRunLoop.h"
#include "adapters/loop/QtTaskExecutor.h"
#include "adapters/places/CityLister.h"
#include "adapters/places/GeoClueLocationClient.h"
#include "adapters/places/LocationPermission.h"
#include "adapters/places/OfflineGeocoder.h"
#include "adapters/places/ZoneCity.h"
#include "adapters/power/BluezBatteries.h"
#include "adapters/power/LinuxAccessories.h"
#include "adapters/power/LinuxPowerSources.h"
#include "adapters/power/UPowerSources.h"
#include "adapters/secret/PluggedSecretStore.h"
#include "adapters/session/open/OpenSession.h"
#include "adapters/storage/JsonUserDefaults.h"
#include "adapters/storage/LinuxDesktopFolder.h"
#include "adapters/storage/UserDirs.h"
#include "adapters/tray/DockedItem.h"
#include "adapters/tray/LinuxStatusBar.h"
#include "adapters/updates/PackageKitUpdates.h"
#include "adapters/web/PluggedHttpClient.h"
#include "adapters/windows/X11ApplicationPolicy.h"
#include "app/EndBudget.h"
#include "base/Background.h"
#include "drawing/painting/SymbolLibrary.h"
#include "host/UpdateChecker.h"
#include "ports/WindowServer.h"
#include "settings/Consents.h"
#include "ui/tray/TrayMenu.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDir>
#include <QFile>
#include <QLocale>
#include <QStandardPaths>

namespace zeph {

namespace {

// Most of them wait for a server.
constexpr int mostTasks = 16;

// Of the end. Copies of pictures take some milliseconds.
constexpr std::chrono::milliseconds desktopPatience{100};

const QString supplies = QStringLiteral("/sys/class/power_supply");

const QString traySymbol = QStringLiteral("com.tavi.Tavi-symbolic");

/// The tray's symbol where it is installed for the icon themes of the desktop, else nothing.
QString installedTraySymbol() {
    const QString found = QStandardPaths::locate(
        QStandardPaths::GenericDataLocation,
        QStringLiteral("icons/hicolor/symbolic/apps/%1.svg").arg(traySymbol));
    return found.isEmpty() ? QString() : traySymbol;
}

ui::Appearance appearanceOf(const DesktopAppearance &desktop) {
    if (desktop.wantsHighContrast()) {
        return ui::Appearance::highContrast;
    }
    const bool isDark = desktop.scheme() == DesktopAppearance::Scheme::dark ||
                        (desktop.scheme() == DesktopAppearance::Scheme::unknown &&
                         QApplication::palette().color(QPalette::Window).lightness() < 128);
    return isDark ? ui::Appearance::dark : ui::Appearance::light;
}

QString currentDesktop() {
    return qEnvironmentVariable("XDG_CURRENT_DESKTOP");
}

std::unique_ptr<LoginItem> makeLoginItem(UserDefaults &defaults) {
    const QString program = QCoreApplication::applicationFilePath();
    if (runsInSandbox(program)) {
        return std::make_unique<PortalLoginItem>(QDBusConnection::sessionBus(), defaults);
    }
    return std::make_unique<AutostartEntry>(
        QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation), program);
}

QByteArray fileName(const QString &path) {
    return QFile::encodeName(path);
}

/// The set of settings that the program runs with which draws LXDE's desktop. Waits.
QString profileOfLxde() {
    const auto running = ProgramIcons(lxdeDesktop(), &lookForDesktop, {}).iconSetting();
    if (!running || !running->areShown) {
        return lxdeDesktop().profile;
    }
    return running->value.isEmpty() ? QStringLiteral("default") : running->value;
}

/// What a script prints in the shell of the user's session. Waits.
std::optional<QString> printedInPlasma(const QString &script) {
    return printedBy(evaluateInPlasma(QDBusConnection::sessionBus(), script));
}

std::optional<IconStore> iconStoreHere(const DesktopFolder &desktop) {
    const auto kind = iconStoreKindFor(currentDesktop());
    return kind ? std::optional(IconStore{
                      *kind,
                      {QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation),
                       QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation),
                       desktop.url().value_or(QByteArray())},
                      &profileOfLxde,
                      &printedInPlasma})
                : std::nullopt;
}

} // namespace

/// What the display session works with, and so is there before it.
struct LinuxPlatform::Foundation {
    explicit Foundation(const QString &defaultsPath) : defaults(defaultsPath) {}

    QtRunLoop runLoop;
    JsonUserDefaults defaults;
    Consents consents{defaults};
    // Before the executor, whose threads use it.
    LinuxDesktopFolder desktopFolder{findDesktopFolder(
        fileName(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)),
        fileName(QDir::homePath()))};
    QtTaskExecutor executor{mostTasks, QtTaskExecutor::Start::whenReleased};
    Background background = Background::over(executor, runLoop);
    DesktopEntries desktopEntries{
        QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation),
        QLocale::system().name(), background};
};

struct LinuxPlatform::Adapters {
    Adapters(std::unique_ptr<Foundation> laid, std::unique_ptr<DisplaySession> opened,
             const Calendar &userCalendar, const Calendar &gregorian,
             const Formatters &userFormatters)
        : foundation(std::move(laid)),
          session(std::move(opened)),
          eventStore(clock, userCalendar, runLoop, foundation->consents.calendar,
                     foundation->consents.reminders),
          locationPermission(foundation->consents.location),
          ports{.clock = clock,
                .calendar = userCalendar,
                .gregorian = gregorian,
                .formatters = userFormatters,
                .runLoop = runLoop,
                .background = background,
                .accountBackground = accountBackground,
                .taskExecutor = executor,
                .userDefaults = defaults,
                .workspace = session->workspace(),
                .inputEvents = session->inputEvents(),
                .hostStatistics = hostStatistics,
                .networkInterfaces = interfaces,
                .wifi = wifi,
                .volume = volume,
                .powerSources = powerSources,
                .accessories = accessories,
                .desktopFolder = foundation->desktopFolder,
                .focusFile = focusFile,
                .eventStore = eventStore,
                .locationClient = locationClient,
                .geocoder = geocoder,
                .httpClient = httpClient,
                .secureStore = secureStore,
                .screens = screens,
                .windowServer = session->windowServer(),
                .virtualDesktops = session->virtualDesktops(),
                .desktopWallpaper = session->desktopWallpaper()} {}

    std::unique_ptr<Foundation> foundation;
    std::unique_ptr<DisplaySession> session;
    QtRunLoop &runLoop = foundation->runLoop;
    JsonUserDefaults &defaults = foundation->defaults;
    QtTaskExecutor &executor = foundation->executor;
    Background &background = foundation->background;
    DesktopIconsWatch desktopIcons{iconStoreHere(foundation->desktopFolder), background,
                                   QDBusConnection::sessionBus()};
    ScreensBesideIcons screens{session->screens(), session->windowServer(), desktopIcons};
    SystemClock clock;
    QtTaskExecutor accountExecutor{mostTasks, QtTaskExecutor::Start::whenReleased};
    Background accountBackground = Background::over(accountExecutor, runLoop);
    ProcHostStatistics hostStatistics;
    ProcNetworkInterfaces interfaces;
    NetworkManagerWiFi wifi{QDBusConnection::systemBus()};
    StatvfsVolume volume{
        folderOnTheDisk(runsInSandbox(QCoreApplication::applicationFilePath()), QDir::homePath())};
    UPowerSources upower{QDBusConnection::systemBus()};
    LinuxPowerSources powerSources{upower, supplies, background};
    BluezBatteries bluez{QDBusConnection::systemBus()};
    LinuxAccessories accessories{supplies, upower, bluez, runLoop};
    LinuxFocusFile focusFile{focusSourceFor(currentDesktop()), QDBusConnection::sessionBus(),
                             background};
    EdsEventStore eventStore;
    LocationPermission locationPermission;
    GeoClueLocationClient locationClient{QDBusConnection::systemBus(), locationPermission,
                                         [] { return zoneCity(SystemZone().id()); }};
    OfflineGeocoder geocoder{executor, runLoop, cityListerPath()};
    PluggedHttpClient httpClient;
    PluggedSecretStore secureStore;
    Platform ports;
};

struct LinuxPlatform::Shell {
    explicit Shell(Adapters &adapters)
        : loginItem(makeLoginItem(adapters.defaults)),
          desktopShell(makeDesktopShell(
              currentDesktop(),
              QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation),
              QDBusConnection::sessionBus(),
              // Which way it is goes by the program that draws the desktop, too.
              [&server = adapters.session->windowServer()](std::function<void()> handler) {
                  return server.subscribeToDrawingWay(std::move(handler));
              })),
          statusBar(QDBusConnection::sessionBus(), trayTools(),
                    [](const TrayFacts &facts, const TrayTools &tools) {
                        return DockedItem::make(facts, tools);
                    }),
          ports{.policy = policy,
                .statusBar = statusBar,
                .loginItem = *loginItem,
                .updates = updates,
                .appearance = appearance,
                .desktopShell = *desktopShell,
                .systemSettings = systemSettings,
                .windowScreens = adapters.session->screens(),
                .makeLocationClient = [&permission = adapters.locationPermission] {
                    return std::make_unique<GeoClueLocationClient>(
                        QDBusConnection::systemBus(), permission,
                        [] { return zoneCity(SystemZone().id()); });
                }} {}

    TrayTools trayTools() {
        return {.drawSymbol = [this](const QString &symbol,
                                     int pixels) { return symbols.mask(symbol, pixels); },
                .popUpMenu =
                    [this](const std::vector<MenuItem> &menu, QPoint position) {
                        ui::TrayMenu::popUp(menu, appearanceOf(appearance), position);
                    },
                .iconName = installedTraySymbol(),
                .keyNames = trayKeyNamesOf(qEnvironmentVariable("XDG_CURRENT_DESKTOP"))};
    }

    SymbolLibrary symbols;
    X11ApplicationPolicy policy;
    std::unique_ptr<LoginItem> loginItem;
    PackageKitUpdates updates{QDBusConnection::systemBus(), QCoreApplication::applicationFilePath(),
                              UpdateChecker::currentVersion(),
                              runsInSandbox(QCoreApplication::applicationFilePath())};
    PortalAppearance appearance{QDBusConnection::sessionBus()};
    std::unique_ptr<DesktopShell> desktopShell;
    SettingsPages systemSettings{
        currentDesktop(), QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation)};
    LinuxStatusBar statusBar;
    ShellPorts ports;
};

LinuxPlatform::LinuxPlatform(std::unique_ptr<Adapters> adapters)
    : m_adapters(std::move(adapters)) {}

LinuxPlatform::~LinuxPlatform() = default;

LinuxPlatform::Created LinuxPlatform::create(const QString &defaultsPath, const Calendar &calendar,
                                             const Calendar &gregorian,
                                             const Formatters &formatters) {
    auto foundation = std::make_unique<Foundation>(defaultsPath);
    OpenedSession opened =
        openSession({foundation->desktopEntries, foundation->consents.input, foundation->runLoop,
                     foundation->background, foundation->defaults});
    if (!opened.session) {
        return {nullptr, opened.refusal};
    }
    auto adapters = std::make_unique<Adapters>(std::move(foundation), std::move(opened.session),
                                               calendar, gregorian, formatters);
    return {std::unique_ptr<LinuxPlatform>(new LinuxPlatform(std::move(adapters))), {}};
}

const Platform &LinuxPlatform::ports() const {
    return m_adapters->ports;
}

const ShellPorts &LinuxPlatform::shellPorts() {
    if (!m_shell) {
        m_shell = std::make_unique<Shell>(*m_adapters);
    }
    return m_shell->ports;
}

Consents &LinuxPlatform::consents() {
    return m_adapters->foundation->consents;
}

void LinuxPlatform::releaseTasks() {
    m_adapters->executor.release();
    m_adapters->accountExecutor.release();
}

void LinuxPlatform::cancelRequests() {
    m_adapters->httpClient.cancelAll();
}

void LinuxPlatform::leaveDesktop(const EndBudget &budget) {
    m_adapters->session->leave(budget.left(desktopPatience));
}

bool LinuxPlatform::finishTasks(const EndBudget &budget) {
    m_adapters->httpClient.cancelAll();
    m_adapters->secureStore.cancelAll();
    m_adapters->accountExecutor.beginShutdown();
    return m_adapters->executor.finish(budget.left()) &&
           m_adapters->accountExecutor.finish(budget.left()) &&
           m_adapters->eventStore.finish(budget.left());
}

} // namespace zeph
