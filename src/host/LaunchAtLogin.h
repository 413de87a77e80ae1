// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace zeph {

class LoginItem;

/// Whether the wallpaper comes with the session. Main thread only.
class LaunchAtLogin {
public:
    explicit LaunchAtLogin(LoginItem &item) : m_item(item) {}

    bool isEnabled() const;

    /// `done` is told whether the wanted state holds at the end; where it does already, nothing is
    /// asked of the system. A failure is printed.
    void setEnabled(bool enabled, std::function<void(bool holds)> done = {});

    /// Follows a program that was moved: what the session starts is this copy where it was to be
    /// one that is gone. A failure is printed.
    void renew();

private:
    LoginItem &m_item;
};

} // namespace zeph
