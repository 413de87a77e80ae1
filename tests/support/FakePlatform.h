// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/locale/IcuCalendar.h"
#include "adapters/locale/IcuFormatters.h"
#include "base/Background.h"
#include "history/UsageStore.h"
#include "ports/Platform.h"
#include "services/ambient/LocationManager.h"
#include "support/FakeAccessories.h"
#include "support/FakeDesktopFolder.h"
#include "support/FakeEventStore.h"
#include "support/FakeFocusFile.h"
#include "support/FakeHttpClient.h"
#include "support/FakeInputEvents.h"
#include "support/FakeLocation.h"
#include "support/FakeMachine.h"
#include "support/FakePowerSources.h"
#include "support/FakeScreens.h"
#include "support/FakeSecureStore.h"
#include "support/FakeUserDefaults.h"
#include "support/FakeVirtualDesktops.h"
#include "support/FakeWindowServer.h"
#include "support/FakeWorkspace.h"
#include "support/ManualRunLoop.h"
#include "support/ManualTaskExecutor.h"

#include <QTemporaryDir>

namespace zeph {

/// A whole machine of fakes with a real history file and a real calendar in Berlin.
class FakePlatform {
public:
    explicit FakePlatform(const QString &locale = QStringLiteral("en_US"))
        : calendar(locale, QStringLiteral("Europe/Berlin")) {
        clock.set({1'700'000'020.0}); // 2023-11-14 22:13:40 UTC
    }

    QTemporaryDir folder;
    ManualClock clock;
    ManualRunLoop loop{clock};
    IcuCalendar calendar;
    IcuCalendar gregorian{QStringLiteral("en_US"), QStringLiteral("Europe/Berlin")};
    IcuFormatters formatters{QStringLiteral("en_US"), QStringLiteral("Europe/Berlin")};
    ManualTaskExecutor executor;
    Background background = Background::over(executor, loop);
    FakeUserDefaults defaults;
    FakeWorkspace workspace;
    FakeInputEvents input;
    FakeHostStatistics host;
    FakeNetworkInterfaces interfaces;
    FakeWiFi wifi;
    FakeVolume volume;
    FakePowerSources powerSources;
    FakeAccessories accessories;
    FakeDesktopFolder desktopFolder;
    FakeFocusFile focusFile;
    FakeEventStore eventStore;
    FakeHttpClient http; // without a network until the test says otherwise
    FakeSecureStore secrets;
    FakeScreens screens;
    FakeWindowServer windowServer;
    FakeVirtualDesktops virtualDesktops;
    FakeLocationClient locationClient;
    FakeGeocoder geocoder;
    LocationManager location{&locationClient, &geocoder};
    Platform platform{.clock = clock,
                      .calendar = calendar,
                      .gregorian = gregorian,
                      .formatters = formatters,
                      .runLoop = loop,
                      .background = background,
                      .accountBackground = background,
                      .taskExecutor = executor,
                      .userDefaults = defaults,
                      .workspace = workspace,
                      .inputEvents = input,
                      .hostStatistics = host,
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
                      .httpClient = http,
                      .secureStore = secrets,
                      .screens = screens,
                      .windowServer = windowServer,
                      .virtualDesktops = virtualDesktops};
    std::unique_ptr<UsageStore> usageStore =
        std::make_unique<UsageStore>(folder.path(), clock, calendar);
};

} // namespace zeph
