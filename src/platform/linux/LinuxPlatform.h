// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Platform.h"

#include <chrono>
#include <memory>

class QString;

namespace zeph {

/// The ports of this machine: Linux with an X11 desktop. Main thread only; the application
/// object has to exist.
class LinuxPlatform {
public:
    /// Null when the X server can't be reached or keeps pixels in no form that we can paint.
    /// `defaultsPath` is the file of the settings.
    static std::unique_ptr<LinuxPlatform>
    create(const QString &defaultsPath, const Calendar &calendar, const Formatters &formatters);
    ~LinuxPlatform();
    LinuxPlatform(const LinuxPlatform &) = delete;
    LinuxPlatform &operator=(const LinuxPlatform &) = delete;

    const Platform &ports() const;

    /// Ends the requests under way, and every one that follows.
    void cancelRequests();

    /// Cuts short what waits for a server or a person, and waits for the tasks under way; false
    /// when `patience` was not enough, as with a disk that hangs. Nothing is started after that.
    bool finishTasks(std::chrono::milliseconds patience);

private:
    struct Adapters;
    explicit LinuxPlatform(std::unique_ptr<Adapters> adapters);

    std::unique_ptr<Adapters> m_adapters;
};

} // namespace zeph
