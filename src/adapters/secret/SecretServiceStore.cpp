// SPDX-License-Identifier: MIT
#include "adapters/secret/SecretServiceStore.h"

#include "adapters/secret/SecretLoop.h"
#include "adapters/secret/SecretVault.h"

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <utility>

namespace zeph {

namespace {

using Work = std::function<void(SecretVault &)>;

} // namespace

/// The thread that speaks to the service, and those who wait for it.
class SecretServiceStore::Worker {
public:
    explicit Worker(const SecretServiceLimits &limits)
        : m_limits(limits), m_loop(limits.answer), m_vault(m_loop) {}

    ~Worker() {
        cancel();
        if (m_thread.joinable()) {
            m_thread.join();
        }
    }
    Worker(const Worker &) = delete;
    Worker &operator=(const Worker &) = delete;

    /// What `operation` answers, unavailable when it could not be carried out.
    template <typename Operation>
    auto run(Operation operation) {
        using Answer = std::invoke_result_t<Operation, SecretVault &>;
        // Shared, since a caller that was released may be gone before the operation ends.
        const auto answer = std::make_shared<Answer>(Answer{SecretOutcome::unavailable});
        const bool isDone =
            wait([answer, operation](SecretVault &vault) { *answer = operation(vault); });
        return isDone ? std::move(*answer) : Answer{SecretOutcome::unavailable};
    }

    /// Carries `work` out in its turn; false when it was not, or not to the end.
    bool wait(Work work) {
        auto job = std::make_shared<Job>();
        job->work = std::move(work);
        std::unique_lock lock(m_mutex);
        if (m_isCancelled) {
            return false;
        }
        m_jobs.push_back(job);
        if (!m_thread.joinable()) {
            m_thread = std::thread([this] { serve(); });
        }
        m_loop.wake();
        m_changed.wait(lock, [&] { return job->isDone || m_isCancelled; });
        return job->isDone;
    }

    void cancel() {
        const std::lock_guard guard(m_mutex);
        if (!std::exchange(m_isCancelled, true)) {
            m_loop.cancel();
            m_changed.notify_all();
        }
    }

private:
    using Clock = std::chrono::steady_clock;

    struct Job {
        Work work;
        bool isDone = false;
    };

    void serve() {
        m_loop.enter();
        while (!m_loop.isCancelled()) {
            if (const auto job = nextJob()) {
                carryOut(*job);
            } else {
                m_loop.turn();
            }
        }
        m_loop.leave();
    }

    std::shared_ptr<Job> nextJob() {
        const std::lock_guard guard(m_mutex);
        if (m_jobs.empty()) {
            return nullptr;
        }
        auto job = std::move(m_jobs.front());
        m_jobs.pop_front();
        return job;
    }

    void carryOut(Job &job) {
        // A service that hangs would hold up one caller after the other.
        if (Clock::now() >= m_silentUntil) {
            job.work(m_vault);
        }
        if (m_loop.takeTooLate()) {
            m_silentUntil = Clock::now() + m_limits.silence;
        }
        const std::lock_guard guard(m_mutex);
        job.isDone = true;
        m_changed.notify_all();
    }

    SecretServiceLimits m_limits;
    SecretLoop m_loop;
    SecretVault m_vault;             // of the thread alone
    Clock::time_point m_silentUntil; // of the thread alone
    std::mutex m_mutex;              // for all below
    std::condition_variable m_changed;
    std::deque<std::shared_ptr<Job>> m_jobs;
    bool m_isCancelled = false;
    std::thread m_thread;
};

SecretServiceStore::SecretServiceStore(const SecretServiceLimits &limits)
    : m_worker(std::make_unique<Worker>(limits)) {}

SecretServiceStore::~SecretServiceStore() = default;

SecretOutcome SecretServiceStore::add(const QString &service, const QString &account,
                                      const QByteArray &data) {
    return m_worker->run([=](SecretVault &vault) { return vault.add(service, account, data); });
}

SecretAnswer<std::optional<QByteArray>> SecretServiceStore::copy(const QString &service,
                                                                 const QString &account) {
    return m_worker->run([=](SecretVault &vault) { return vault.copy(service, account); });
}

SecretAnswer<std::vector<SecureItem>> SecretServiceStore::copyAll(const QString &service) {
    return m_worker->run([=](SecretVault &vault) { return vault.copyAll(service); });
}

SecretOutcome SecretServiceStore::remove(const QString &service, const QString &account) {
    return m_worker->run([=](SecretVault &vault) { return vault.remove(service, account); });
}

void SecretServiceStore::askAgain() {
    m_worker->wait([](SecretVault &vault) { vault.askAgain(); });
}

void SecretServiceStore::cancelAll() {
    m_worker->cancel();
}

} // namespace zeph
