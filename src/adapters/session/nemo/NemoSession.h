// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/loop/QtTaskExecutor.h"
#include "adapters/session/nemo/NemoDesktop.h"
#include "adapters/session/x11/X11Session.h"
#include "base/Background.h"

#include <memory>
#include <optional>

namespace zeph {

/// The session of an X server whose desktop may be Nemo's.
class NemoSession : public DisplaySession {
public:
    /// What the session works with beside the X server; all outlive it.
    struct Surroundings {
        UserDefaults &defaults;
        RunLoop &runLoop;
        bool isCinnamon = false; ///< whose desktop is Nemo's, running by now or not
    };

    NemoSession(std::unique_ptr<X11Session> x11, const Surroundings &surroundings);

    /// Gives Nemo's settings back, waiting for them for a moment.
    ~NemoSession() override;
    NemoSession(const NemoSession &) = delete;
    NemoSession &operator=(const NemoSession &) = delete;

    Screens &screens() override { return m_x11->screens(); }
    WindowServer &windowServer() override { return m_x11->windowServer(); }
    Workspace &workspace() override { return m_x11->workspace(); }
    InputEvents &inputEvents() override { return m_x11->inputEvents(); }
    VirtualDesktops &virtualDesktops() override { return m_x11->virtualDesktops(); }

private:
    std::unique_ptr<X11Session> m_x11;
    UserDefaults &m_defaults;
    // Of its own, which does not wait for the first frame: Nemo looks at the windows of others
    // once, as it starts, and then ours is to be known to it.
    QtTaskExecutor m_executor{1};
    Background m_background;
    std::optional<NemoDesktop> m_nemo;
    Subscription m_news;
};

} // namespace zeph
