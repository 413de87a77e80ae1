// SPDX-License-Identifier: MIT
#pragma once

namespace zeph {

class Accessories;
class Background;
class Calendar;
class Clock;
class DesktopFolder;
class DesktopWallpaper;
class EventStore;
class FocusFile;
class Formatters;
class Geocoder;
class HostStatistics;
class HttpClient;
class InputEvents;
class LocationClient;
class NetworkInterfaces;
class PowerSources;
class RunLoop;
class Screens;
class SecureStore;
class TaskExecutor;
class UserDefaults;
class VirtualDesktops;
class Volume;
class WiFi;
class WindowServer;
class Workspace;

/// Every port of the machine in one place. `main` builds the real one, tests build fakes; the
/// objects outlive whoever is handed this.
struct Platform {
    Clock &clock;
    const Calendar &calendar;
    /// Counts days and years as the sun and services do, in the user's zone.
    const Calendar &gregorian;
    const Formatters &formatters;
    RunLoop &runLoop;
    const Background &background;
    /// For the refreshes of accounts, which can stand for long behind a prompt or a dead network,
    /// and must not take the threads of all else.
    const Background &accountBackground;
    TaskExecutor &taskExecutor;
    UserDefaults &userDefaults;
    Workspace &workspace;
    InputEvents &inputEvents;
    const HostStatistics &hostStatistics;
    const NetworkInterfaces &networkInterfaces;
    const WiFi &wifi;
    const Volume &volume;
    PowerSources &powerSources;
    const Accessories &accessories;
    DesktopFolder &desktopFolder;
    FocusFile &focusFile;
    EventStore &eventStore;
    LocationClient &locationClient;
    Geocoder &geocoder;
    HttpClient &httpClient;
    SecureStore &secureStore;
    Screens &screens;
    WindowServer &windowServer;
    VirtualDesktops &virtualDesktops;
    /// Null where the desktop has no wallpaper that ours could take the place of.
    DesktopWallpaper *desktopWallpaper = nullptr;
};

} // namespace zeph
