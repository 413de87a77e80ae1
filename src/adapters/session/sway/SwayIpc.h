// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/kernel/FileDescriptor.h"
#include "adapters/session/sway/SwayAnswers.h"
#include "adapters/session/sway/SwayMessages.h"
#include "base/ChangePublisher.h"
#include "base/WorkOwner.h"

#include <QSocketNotifier>
#include <QString>

#include <deque>
#include <functional>
#include <memory>

namespace zeph {

class RunLoop;

/// The conversation with sway over the socket of its own, see sway-ipc(7). Nothing here waits.
/// When sway hangs up it is called again, later and later, for as long as its socket is there and
/// no conversation lasts.
/// Main thread only.
class SwayIpc {
public:
    using Answer = std::function<void(const QByteArray &payload)>;
    using WindowHandler = std::function<void(const SwayWindowChange &change)>;
    using EventHandler = std::function<void(SwayEvent kind, const QByteArray &payload)>;

    /// `path` as in SWAYSOCK; with an empty one there is no sway. `runLoop` outlives this.
    SwayIpc(RunLoop &runLoop, QString path);
    ~SwayIpc();
    SwayIpc(const SwayIpc &) = delete;
    SwayIpc &operator=(const SwayIpc &) = delete;

    bool isConnected() const { return m_connection != nullptr; }

    /// Calls `handler` after each start of a conversation: what was known is to be asked anew.
    [[nodiscard]] Subscription subscribeToStart(std::function<void()> handler);

    /// Calls `handler` after each end of one: nothing is heard any more, perhaps for good.
    [[nodiscard]] Subscription subscribeToEnd(std::function<void()> handler);

    /// Calls `handler` for what happens to windows, but for their titles.
    [[nodiscard]] Subscription subscribeToWindows(WindowHandler handler);

    /// Calls `handler` for everything else that sway tells by itself.
    [[nodiscard]] Subscription subscribeToEvents(EventHandler handler);

    /// Asks sway, if it is there. `answer` runs later, and never once the conversation has ended.
    void ask(SwayRequest kind, Answer answer);

private:
    struct Question {
        SwayRequest kind;
        Answer answer;
    };
    /// What lives as long as one conversation.
    struct Connection {
        explicit Connection(int descriptor);

        FileDescriptor socket;
        QSocketNotifier readable;
        QSocketNotifier writable;
        SwayMessageReader reader;
        QByteArray unsent;
        std::deque<Question> questions;
        WorkOwner life;
    };

    void call();
    void callAgain();
    void send(SwayRequest kind, const QByteArray &payload, Answer answer);
    void flush();
    void read();
    void takeAll();
    void take(const SwayMessage &message);
    void takeEvent(SwayEvent kind, const QByteArray &payload);
    void hangUp(const char *reason);

    RunLoop &m_runLoop;
    QString m_path;
    std::unique_ptr<Connection> m_connection;
    int m_failures = 0; // since the last conversation that lasted
    SwayEvent m_event = SwayEvent::workspace;
    QByteArray m_eventPayload;
    SwayWindowChange m_windowChange;
    ChangePublisher m_starts;
    ChangePublisher m_ends;
    ChangePublisher m_windows;
    ChangePublisher m_events;
    WorkOwner m_owner;
};

} // namespace zeph
