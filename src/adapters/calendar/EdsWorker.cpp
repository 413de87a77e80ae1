// SPDX-License-Identifier: MIT
#include "adapters/calendar/EdsWorker.h"

#include "adapters/plugin/PluginFile.h"
#include "base/StartedThread.h"
#include "ports/RunLoop.h"

#include <pthread.h>

#include <condition_variable>
#include <mutex>
#include <optional>
#include <utility>

namespace zeph {

/// What the main thread and the worker's thread share.
class EdsWorker::Link : public EdsReport, public std::enable_shared_from_this<Link> {
public:
    Link(RunLoop &runLoop, EdsHandlers handlers)
        : m_runLoop(&runLoop), m_handlers(std::move(handlers)) {}

    void run(PluginFile &plugin, const EdsPacing &pacing) {
        const auto make = plugin.function<MakeEdsSession>("zephMakeEdsSession");
        if (make != nullptr) {
            const std::unique_ptr<EdsSession> session(make(*this, pacing));
            if (enter(*session)) {
                session->run();
                leave();
            }
        }
        end();
    }

    /// Nothing is read any more.
    void end() {
        const std::lock_guard lock(m_mutex);
        m_isOver = true;
        m_over.notify_all();
    }

    void ask(const EdsQuery &query) {
        const std::lock_guard lock(m_mutex);
        if (m_session != nullptr) {
            m_session->ask(query);
        } else {
            m_early = query;
        }
    }

    void close() {
        const std::lock_guard lock(m_mutex);
        m_runLoop = nullptr;
        if (m_session != nullptr) {
            m_session->stop();
        }
    }

    bool waitUntilOver(std::chrono::milliseconds patience) {
        std::unique_lock lock(m_mutex);
        return m_over.wait_for(lock, patience, [this] { return m_isOver; });
    }

    void eventsRead(EdsEvents events) override {
        auto answer = std::make_shared<EdsEvents>(std::move(events)); // a task must be copyable
        post([answer](const EdsHandlers &handlers) { handlers.eventsRead(std::move(*answer)); });
    }

    void tasksRead(std::vector<EdsTask> tasks) override {
        auto answer = std::make_shared<std::vector<EdsTask>>(std::move(tasks)); // as above
        post([answer](const EdsHandlers &handlers) { handlers.tasksRead(std::move(*answer)); });
    }

private:
    bool enter(EdsSession &session) {
        const std::lock_guard lock(m_mutex);
        if (m_runLoop == nullptr) {
            return false;
        }
        m_session = &session;
        if (m_early) {
            session.ask(*m_early);
        }
        return true;
    }

    void leave() {
        const std::lock_guard lock(m_mutex);
        m_session = nullptr;
    }

    void post(std::function<void(const EdsHandlers &)> deliver) {
        const std::lock_guard lock(m_mutex);
        if (m_runLoop == nullptr) {
            return;
        }
        m_runLoop->post([link = shared_from_this(), deliver = std::move(deliver)] {
            if (link->isOpen()) { // closed on this same thread only
                deliver(link->m_handlers);
            }
        });
    }

    bool isOpen() {
        const std::lock_guard lock(m_mutex);
        return m_runLoop != nullptr;
    }

    std::mutex m_mutex;
    std::condition_variable m_over;
    RunLoop *m_runLoop;              // null once closed
    EdsSession *m_session = nullptr; // while its thread serves it
    std::optional<EdsQuery> m_early; // asked before there was a session
    bool m_isOver = false;
    EdsHandlers m_handlers; // used on the main thread only
};

EdsWorker::EdsWorker(RunLoop &runLoop, std::shared_ptr<PluginFile> plugin, const EdsPacing &pacing,
                     EdsHandlers handlers)
    : m_link(std::make_shared<Link>(runLoop, std::move(handlers))) {
    auto thread = startedThread(
        [link = m_link, plugin = std::move(plugin), pacing] { link->run(*plugin, pacing); });
    if (!thread) {
        m_link->end(); // the next worker tries it again
        return;
    }
    pthread_setname_np(thread->native_handle(), "zeph-calendars");
    thread->detach(); // a hung server must not hold up whoever ends the worker
}

EdsWorker::~EdsWorker() {
    m_link->close();
}

void EdsWorker::ask(const EdsQuery &query) {
    m_link->ask(query);
}

bool EdsWorker::finish(std::chrono::milliseconds patience) {
    m_link->close();
    return m_link->waitUntilOver(patience);
}

} // namespace zeph
