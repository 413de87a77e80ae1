// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/X11IdleAlarm.h"
#include "ports/InputEvents.h"

#include <QElapsedTimer>

namespace zeph {

class Consent;
class Screens;

/// The input of an X session.
class X11InputEvents : public InputEvents {
public:
    /// `consent` is that of the user to input timing. All outlive this.
    X11InputEvents(X11Connection &connection, const Screens &screens, Consent &consent);

    /// One round trip, at most twice a second.
    double secondsSinceLastEvent() const override;

    /// Costs nothing once it was asked for the same time before.
    bool isQuietForMoreThan(double seconds) const override;
    bool isTrusted() const override;
    Subscription subscribeToTrust(std::function<void()> handler) override;
    std::unique_ptr<InputEventTap>
    makeTap(std::function<void(const InputEvent &)> handler) override;

private:
    double askForIdleTime() const;

    X11Connection &m_connection;
    const Screens &m_screens;
    Consent &m_consent;
    mutable std::unique_ptr<X11IdleAlarm> m_alarm;
    mutable bool m_hasNoAlarm = false; // the server has no such thing
    mutable double m_idleSeconds = 0;
    mutable QElapsedTimer m_sinceAsked;
};

} // namespace zeph
