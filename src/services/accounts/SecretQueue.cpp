// SPDX-License-Identifier: MIT
#include "services/accounts/SecretQueue.h"

#include "ports/RunLoop.h"
#include "ports/TaskExecutor.h"

#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>
#include <utility>

namespace zeph {

namespace {

struct Piece {
    std::function<SecretOutcome()> work;
    SecretDone done;
    std::function<void()> deliver; // to be run on the main thread
    SecretOutcome outcome = SecretOutcome::unavailable;
};

} // namespace

struct SecretQueue::Line {
    void workOff(RunLoop &runLoop) {
        std::unique_lock lock(mutex);
        while (!waiting.empty()) {
            Piece piece = std::move(waiting.front());
            waiting.pop_front();
            lock.unlock();
            try {
                piece.outcome = piece.work();
            } catch (const std::exception &) {
                // Such as a library without memory. Those that wait are not to blame.
            }
            lock.lock();
            runLoop.post(piece.deliver);
            ended.push_back(std::move(piece));
        }
        isWorking = false;
        idle.notify_all();
    }

    std::mutex mutex; // for all that follows
    std::condition_variable idle;
    std::deque<Piece> waiting;
    std::deque<Piece> ended; // and not told yet
    bool isWorking = false;
};

SecretQueue::SecretQueue(RunLoop &runLoop, TaskExecutor &executor)
    : m_runLoop(runLoop), m_executor(executor), m_line(std::make_shared<Line>()) {}

void SecretQueue::run(std::function<SecretOutcome()> work, SecretDone done) {
    if (m_isEnding) {
        return;
    }
    {
        const std::lock_guard guard(m_line->mutex);
        m_line->waiting.push_back(
            {std::move(work), std::move(done), m_owner.whileAlive([this] { deliver(); })});
        if (std::exchange(m_line->isWorking, true)) {
            return;
        }
    }
    m_executor.run([line = m_line, &runLoop = m_runLoop] { line->workOff(runLoop); });
}

/// Tells the oldest piece of work that has ended; false when there is none.
bool SecretQueue::deliver() {
    std::unique_lock lock(m_line->mutex);
    if (m_isFinished || m_line->ended.empty()) {
        return false;
    }
    const Piece piece = std::move(m_line->ended.front());
    m_line->ended.pop_front();
    lock.unlock();
    if (piece.done) {
        piece.done(piece.outcome); // which may end the queue
    }
    return true;
}

bool SecretQueue::finish(std::chrono::milliseconds patience) {
    m_isEnding = true; // what is told below may want to begin more, which nobody would wait for
    std::unique_lock lock(m_line->mutex);
    const bool isIdle =
        m_line->idle.wait_for(lock, patience, [this] { return !m_line->isWorking; });
    m_line->waiting.clear();
    lock.unlock();
    while (deliver()) {
    }
    m_isFinished = true;
    return isIdle;
}

} // namespace zeph
