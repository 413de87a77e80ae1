// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Platform.h"

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

private:
    struct Adapters;
    explicit LinuxPlatform(std::unique_ptr<Adapters> adapters);

    std::unique_ptr<Adapters> m_adapters;
};

} // namespace zeph
