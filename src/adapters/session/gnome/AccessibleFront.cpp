// SPDX-License-Identifier: MIT
#include "adapters/session/gnome/AccessibleFront.h"

#include "adapters/apps/OwnApplication.h"
#include "adapters/apps/ProcessWords.h"
#include "adapters/bus/DBusCalls.h"
#include "ports/Consent.h"

#include <unistd.h>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

using Kind = AccessibleWindow::Kind;

const QString kRegistryName = u"org.a11y.atspi.Registry"_s; // its interface has the same name
const QString kRegistryPath = u"/org/a11y/atspi/registry"_s;
const QString kEventInterface = u"org.a11y.atspi.Event.Object"_s;
const QString kActiveEvent = u"object:state-changed:active"_s;
const QString kObjectInterface = u"org.a11y.atspi.Accessible"_s;

// Who does not tell what it is by then counts as no window.
constexpr int kRolePatienceMilliseconds = 1000;

const QString kDaemonName = u"org.freedesktop.DBus"_s; // its interface has the same name
const QString kDaemonPath = u"/org/freedesktop/DBus"_s;

// The icons on GNOME's desktop are a program of an extension.
const QString kDesktopIcons = u"ding@"_s;

} // namespace

AccessibleWindow accessibleWindowOf(const ProcessWords &process) {
    const bool isIcons =
        std::any_of(process.arguments.begin(), process.arguments.end(),
                    [](const QString &argument) { return argument.contains(kDesktopIcons); });
    const ApplicationHints hints = hintsIn(process);
    const bool isOurs = process.number == getpid() || isOwnApplication(hints);
    if (process.program == u"gnome-shell" || isIcons || isOurs) {
        return {Kind::desktop};
    }
    const bool isTold = !hints.program.isEmpty() || !hints.desktopFile.isEmpty();
    return isTold ? AccessibleWindow{Kind::application, hints} : AccessibleWindow{Kind::untold};
}

AccessibleFront::AccessibleFront(QDBusConnection sessionBus, Background background,
                                 Consent &consent)
    : m_sessionBus(std::move(sessionBus)),
      m_background(std::move(background)),
      m_consent(consent),
      m_consentChanges(consent.subscribe([this] { followConsent(); })) {
    followConsent();
}

void AccessibleFront::followConsent() {
    if (m_consent.isGranted() == (m_bus != nullptr)) {
        return;
    }
    if (m_consent.isGranted()) {
        m_bus = std::make_unique<AccessibilityBus>(m_sessionBus, m_background,
                                                   [this] { busChanged(); });
    } else {
        // The connection stays, and with it what was asked of programs.
        if (m_registry) {
            m_registry->send(kRegistryPath, kRegistryName, u"DeregisterEvent"_s, {kActiveEvent});
        }
        const auto former = std::move(m_bus); // outlives what listens over it
        busChanged();
    }
}

void AccessibleFront::busChanged() {
    ++m_turn;
    m_active = {};
    m_senderEnd.reset();
    m_states.clear();
    m_registry.reset();
    set({});
    const QDBusConnection *const bus = m_bus ? m_bus->connection() : nullptr;
    if (bus == nullptr) {
        return;
    }
    // Older programs end the message in another way.
    for (const QString &signature : {u"siiva{sv}"_s, u"siiv(so)"_s}) {
        m_states.push_back(std::make_unique<SignalWatch>(
            *bus, BusSignal{{}, {}, kEventInterface, u"StateChanged"_s, {u"active"_s}, signature},
            [this](const QDBusMessage &signal) { stateChanged(signal); }));
    }
    m_registry = std::make_unique<BusService>(*bus, kRegistryName, [this] { registryChanged(); });
}

/// Programs tell what somebody has asked for.
void AccessibleFront::registryChanged() {
    m_registry->send(kRegistryPath, kRegistryName, u"RegisterEvent"_s,
                     {kActiveEvent, QStringList(), QString()});
}

void AccessibleFront::stateChanged(const QDBusMessage &signal) {
    const bool isActive = signal.arguments().at(1).toInt() != 0;
    const auto step = m_active.told({signal.service(), signal.path()}, isActive);
    follow(step.news);
    for (const AccessibleObject &object : step.questions) {
        ask(object);
    }
}

void AccessibleFront::ask(const AccessibleObject &object) {
    const QDBusMessage question =
        QDBusMessage::createMethodCall(object.sender, object.path, kObjectInterface, u"GetRole"_s);
    callAsync(*m_bus->connection(), question, kRolePatienceMilliseconds, &m_context,
              [this, object](const QDBusMessage &answer) {
                  const bool isTold =
                      answer.type() == QDBusMessage::ReplyMessage && answer.signature() == u"u"_s;
                  const bool isWindow =
                      isTold && isWindowRole(answer.arguments().constFirst().toUInt());
                  follow(m_active.answered(object, isWindow));
              });
}

void AccessibleFront::follow(ActiveObject::News news) {
    switch (news) {
    case ActiveObject::News::none:
        break;
    case ActiveObject::News::gained:
        ++m_turn;
        followEnd();
        askProcess();
        break;
    case ActiveObject::News::lost:
        ++m_turn;
        set({Kind::untold});
        break;
    }
}

/// A program that ends does not say that its window lost the focus.
void AccessibleFront::followEnd() {
    const QString sender = m_active.sender();
    m_senderEnd = std::make_unique<SignalWatch>(
        *m_bus->connection(),
        BusSignal{kDaemonName, kDaemonPath, kDaemonName, u"NameOwnerChanged"_s, {sender}, u"sss"_s},
        [this, sender](const QDBusMessage &signal) {
            if (signal.arguments().at(2).toString().isEmpty()) {
                follow(m_active.ended(sender));
            }
        });
}

void AccessibleFront::askProcess() {
    QDBusMessage question = QDBusMessage::createMethodCall(kDaemonName, kDaemonPath, kDaemonName,
                                                           u"GetConnectionUnixProcessID"_s);
    question << m_active.sender();
    callAsync(*m_bus->connection(), question, busDefaultTimeout, &m_context,
              [this, turn = m_turn](const QDBusMessage &answer) {
                  if (turn != m_turn) {
                      return;
                  }
                  if (answer.type() == QDBusMessage::ReplyMessage && answer.signature() == u"u"_s) {
                      read(answer.arguments().constFirst().toUInt());
                  } else {
                      set({Kind::untold});
                  }
              });
}

/// Away from the main thread: the files of a sandbox may lie anywhere.
void AccessibleFront::read(qint64 process) {
    m_background.run(
        m_reading, [process] { return accessibleWindowOf(wordsOfProcess(process)); },
        [this, turn = m_turn](AccessibleWindow window) {
            if (turn == m_turn) {
                set(std::move(window));
            }
        });
}

void AccessibleFront::set(AccessibleWindow window) {
    m_window = std::move(window);
    m_changes.send();
}

} // namespace zeph
