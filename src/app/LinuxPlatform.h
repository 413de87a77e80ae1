// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Platform.h"
#include "ports/ShellPorts.h"

#include <QString>

#include <memory>

namespace zeph {

class EndBudget;
struct Consents;

/// The ports of this machine: Linux with a desktop on X11 or Wayland. Main thread only; the
/// application object has to exist.
class LinuxPlatform {
public:
    /// A platform, or why there is none, to tell the user.
    struct Created {
        std::unique_ptr<LinuxPlatform> platform;
        QString refusal;
    };

    /// `defaultsPath` is the file of the settings.
    static Created create(const QString &defaultsPath, const Calendar &calendar,
                          const Calendar &gregorian, const Formatters &formatters);
    ~LinuxPlatform();
    LinuxPlatform(const LinuxPlatform &) = delete;
    LinuxPlatform &operator=(const LinuxPlatform &) = delete;

    const Platform &ports() const;

    /// Those of what stands around the wallpaper, made at the first call.
    const ShellPorts &shellPorts();

    /// What the user allowed, which the adapters go by.
    Consents &consents();

    /// Lets tasks run, which wait at first so that they don't take the processor from the first
    /// frame.
    void releaseTasks();

    /// Ends the requests under way, and every one that follows.
    void cancelRequests();

    /// Has the desktop look well without the program, as far as what is left of the end allows.
    void leaveDesktop(const EndBudget &budget);

    /// Cuts short what waits for a server or a person, and waits for the tasks under way; false
    /// when what is left of the end was not enough, as with a disk that hangs. Nothing is started
    /// after that.
    bool finishTasks(const EndBudget &budget);

private:
    struct Foundation;
    struct Adapters;
    struct Shell;
    explicit LinuxPlatform(std::unique_ptr<Adapters> adapters);

    std::unique_ptr<Adapters> m_adapters;
    std::unique_ptr<Shell> m_shell; // works with the adapters
};

} // namespace zeph
