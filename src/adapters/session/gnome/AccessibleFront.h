// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/apps/ApplicationIndex.h"
#include "adapters/session/gnome/AccessibilityBus.h"
#include "adapters/session/gnome/ActiveObject.h"
#include "base/ChangePublisher.h"

#include <memory>
#include <optional>

namespace zeph {

class Consent;
struct ProcessWords;

/// What of the windows of GNOME's Wayland programs is known.
struct AccessibleWindow {
    enum class Kind {
        notHeard,    ///< nothing yet, or nobody may listen
        desktop,     ///< the shell, the icons of the desktop, or a window of ours
        application, ///< one with `hints`
        untold,      ///< not that of the last application: one that does not tell
    };

    Kind kind = Kind::notHeard;
    ApplicationHints hints = {};
};

/// Which of them a process with a window that became active is.
AccessibleWindow accessibleWindowOf(const ProcessWords &process);

/// Which window is active, as programs tell assistive tools by themselves: GNOME's shell tells
/// nobody. Listens with the user's consent alone, to that one event. Those of Qt and of small
/// toolkits say nothing, and of those in a sandbox its file tells which one it is. Main thread
/// only.
class AccessibleFront {
public:
    /// `consent` outlives this.
    AccessibleFront(QDBusConnection sessionBus, Background background, Consent &consent);

    const AccessibleWindow &now() const { return m_window; }

    /// Calls `handler` after every change.
    [[nodiscard]] Subscription subscribe(std::function<void()> handler) {
        return m_changes.subscribe(std::move(handler));
    }

private:
    // One that hangs must not keep the next one from being read.
    static constexpr int kMostReadings = 2;

    void followConsent();
    void busChanged();
    void registryChanged();
    void stateChanged(const QDBusMessage &signal);
    void ask(const AccessibleObject &object);
    void follow(ActiveObject::News news);
    void followEnd();
    void askProcess();
    void read(qint64 process);
    void set(AccessibleWindow window);

    QDBusConnection m_sessionBus;
    Background m_background;
    Consent &m_consent;
    AccessibleWindow m_window;
    ActiveObject m_active;
    quint64 m_turn = 0; // of who has the active window
    ChangePublisher m_changes;
    Subscription m_consentChanges;
    QObject m_context; // its end drops the calls under way
    WorkOwner m_reading{kMostReadings};
    std::unique_ptr<AccessibilityBus> m_bus;
    // Over the connection of the bus, and so gone before it.
    std::unique_ptr<BusService> m_registry;
    std::vector<std::unique_ptr<SignalWatch>> m_states;
    std::unique_ptr<SignalWatch> m_senderEnd;
};

} // namespace zeph
