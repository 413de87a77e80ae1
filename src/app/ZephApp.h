// SPDX-License-Identifier: MIT
#pragma once

#include "app/AppDelegate.h"

namespace zeph {

/// The application: one delegate, launched once and told of the end once, however many ways the
/// end comes.
class ZephApp {
public:
    explicit ZephApp(AppServices services);

    void launch();

    /// Saves what was counted. Further calls do nothing.
    void terminate();

    /// Takes the wallpaper off the desktop, for good.
    void takeDownWallpaper();

private:
    AppDelegate m_delegate;
    bool m_terminated = false;
};

} // namespace zeph
