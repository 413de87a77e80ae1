// SPDX-License-Identifier: MIT
#pragma once

#include "platform/InputEvents.h"

#include <QElapsedTimer>

namespace zeph {

class RunLoop;
class Screens;
class X11Connection;

/// The input of an X session.
class X11InputEvents : public InputEvents {
public:
    /// `isTrusted` tells, at any moment, whether the user consents to input timing.
    X11InputEvents(X11Connection &connection, const Screens &screens, RunLoop &runLoop,
                   std::function<bool()> isTrusted);

    /// One round trip, at most twice a second.
    double secondsSinceLastEvent() const override;
    bool isQuietForMoreThan(double seconds) const override;
    bool isTrusted() const override { return m_isTrusted(); }
    std::unique_ptr<InputEventTap>
    makeTap(std::function<void(const InputEvent &)> handler) override;

private:
    double askForIdleTime() const;

    X11Connection &m_connection;
    const Screens &m_screens;
    RunLoop &m_runLoop;
    std::function<bool()> m_isTrusted;
    mutable double m_idleSeconds = 0;
    mutable QElapsedTimer m_sinceAsked;
};

} // namespace zeph
