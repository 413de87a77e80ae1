// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/kernel/FileDescriptor.h"
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
/// When sway hangs up it is called again, later and later, for as long as its socket is there.
/// Main thread only.
class SwayIpc {
public:
    using Answer = std::function<void(const QByteArray &payload)>;
    using EventHandler = std::function<void(SwayEvent kind, const QByteArray &payload)>;

    /// `path` as in SWAYSOCK; with an empty one there is no sway. `runLoop` outlives this.
    SwayIpc(RunLoop &runLoop, QString path);
    ~SwayIpc();
    SwayIpc(const SwayIpc &) = delete;
    SwayIpc &operator=(const SwayIpc &) = delete;

    bool isConnected() const { return m_connection != nullptr; }

    /// Calls `handler` after each start of a conversation: what was known is to be asked anew.
    [[nodiscard]] Subscription subscribeToStart(std::function<void()> handler);

    /// Calls `handler` for everything that sway tells by itself.
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
    };

    void call();
    void callAgain();
    void send(SwayRequest kind, const QByteArray &payload, Answer answer);
    void flush();
    void read();
    void takeAll();
    void take(const SwayMessage &message);
    void hangUp(const char *reason);

    RunLoop &m_runLoop;
    QString m_path;
    std::unique_ptr<Connection> m_connection;
    int m_failures = 0; // since the last answer
    SwayEvent m_event = SwayEvent::workspace;
    QByteArray m_eventPayload;
    ChangePublisher m_starts;
    ChangePublisher m_events;
    WorkOwner m_owner;
};

} // namespace zeph
