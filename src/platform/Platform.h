// SPDX-License-Identifier: MIT
#pragma once

namespace zeph {

class Calendar;
class Clock;
class Formatters;
class HostStatistics;
class InputEvents;
class NetworkInterfaces;
class PowerSources;
class RunLoop;
class Screens;
class UserDefaults;
class Volume;
class WiFi;
class WindowServer;
class Workspace;

/// Every port of the machine in one place. `main` builds the real one, tests build fakes; the
/// objects outlive whoever is handed this.
struct Platform {
    Clock &clock;
    const Calendar &calendar;
    const Formatters &formatters;
    RunLoop &runLoop;
    UserDefaults &userDefaults;
    Workspace &workspace;
    InputEvents &inputEvents;
    const HostStatistics &hostStatistics;
    const NetworkInterfaces &networkInterfaces;
    const WiFi &wifi;
    const Volume &volume;
    PowerSources &powerSources;
    Screens &screens;
    WindowServer &windowServer;
};

} // namespace zeph
