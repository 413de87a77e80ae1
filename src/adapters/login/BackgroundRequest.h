// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QObject>

#include <functional>
#include <memory>
#include <optional>

class QDBusMessage;

namespace zeph {

class BusService;
class SignalWatch;

/// One question to the desktop's portal, and with it perhaps to the user, whether a program in a
/// sandbox may start with the session.
class BackgroundRequest {
public:
    using Done = std::function<void(const std::optional<QString> &error)>;

    /// `done` runs once, in a later turn of the loop, with why it failed; absent where it didn't.
    BackgroundRequest(QDBusConnection sessionBus, bool wantsAutostart, Done done);
    ~BackgroundRequest();
    BackgroundRequest(const BackgroundRequest &) = delete;
    BackgroundRequest &operator=(const BackgroundRequest &) = delete;

    /// Whether `done` ran, or runs.
    bool isDone() const { return !m_done; }

private:
    void ask(const QString &token);
    void follow(const QString &handle);
    void haveHandle(const QDBusMessage &answer);
    void haveResponse(const QDBusMessage &signal);
    void finish(const std::optional<QString> &error);

    QDBusConnection m_bus;
    bool m_wantsAutostart;
    Done m_done;
    bool m_isAnswered = false;
    QString m_handle;
    std::unique_ptr<SignalWatch> m_watch;
    std::unique_ptr<BusService> m_portal; // once it took the question
    QObject m_context;                    // its end drops the call under way
};

} // namespace zeph
