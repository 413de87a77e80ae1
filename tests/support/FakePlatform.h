// SPDX-License-Identifier: MIT
#pragma once

#include "ambient/LocationManager.h"
#include "history/UsageStore.h"
#include "platform/Platform.h"
#include "platform/icu/IcuCalendar.h"
#include "platform/icu/IcuFormatters.h"
#include "support/FakeInputEvents.h"
#include "support/FakeLocation.h"
#include "support/FakeMachine.h"
#include "support/FakePowerSources.h"
#include "support/FakeScreens.h"
#include "support/FakeUserDefaults.h"
#include "support/FakeWindowServer.h"
#include "support/FakeWorkspace.h"
#include "support/ManualRunLoop.h"

#include <QTemporaryDir>

namespace zeph {

/// A whole machine of fakes with a real history file and a real calendar in Berlin.
class FakePlatform {
public:
    FakePlatform() { clock.set({1'700'000'020.0}); } // 2023-11-14 22:13:40 UTC

    QTemporaryDir folder;
    ManualClock clock;
    ManualRunLoop loop{clock};
    IcuCalendar calendar{QStringLiteral("en_US"), QStringLiteral("Europe/Berlin")};
    IcuFormatters formatters{QStringLiteral("en_US"), QStringLiteral("Europe/Berlin")};
    FakeUserDefaults defaults;
    FakeWorkspace workspace;
    FakeInputEvents input;
    FakeHostStatistics host;
    FakeNetworkInterfaces interfaces;
    FakeWiFi wifi;
    FakeVolume volume;
    FakePowerSources powerSources;
    FakeScreens screens;
    FakeWindowServer windowServer;
    FakeLocationClient locationClient;
    FakeGeocoder geocoder;
    LocationManager location{&locationClient, &geocoder};
    Platform platform{clock, calendar,   formatters, loop,   defaults,     workspace, input,
                      host,  interfaces, wifi,       volume, powerSources, screens,   windowServer};
    std::unique_ptr<UsageStore> usageStore =
        std::make_unique<UsageStore>(folder.path(), clock, calendar);
};

} // namespace zeph
