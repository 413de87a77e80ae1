// SPDX-License-Identifier: MIT
#include "adapters/secret/SecretLoop.h"

#include <utility>

namespace zeph {

namespace {

// A call that is given up ends within a turn or two; a service that hangs would never say so.
constexpr std::chrono::milliseconds endGrace{150};

/// Where a result arrives; it may be later than anybody waits for it.
struct Reply {
    SecretPtr<GAsyncResult> result;
};

void take(GObject * /*source*/, GAsyncResult *result, gpointer data) {
    const std::unique_ptr<std::shared_ptr<Reply>> reply(
        static_cast<std::shared_ptr<Reply> *>(data));
    g_object_ref(result);
    (*reply)->result.reset(result);
}

} // namespace

SecretLoop::SecretLoop(std::chrono::milliseconds answerLimit)
    : m_context(g_main_context_new()), m_answerLimit(answerLimit) {}

SecretLoop::~SecretLoop() = default;

void SecretLoop::enter() {
    g_main_context_push_thread_default(m_context.get());
}

void SecretLoop::leave() {
    m_timer.reset();
    g_main_context_pop_thread_default(m_context.get());
}

SecretPtr<GAsyncResult> SecretLoop::await(const Start &start, bool mayPrompt) {
    if (m_isCancelled) {
        return nullptr;
    }
    m_isAbandoned = false;
    // To give up a call with a prompt the library dismisses the prompt, and GNOME Keyring 42 ends
    // in an assertion when that happens. So such a call is left to itself, and the prompt to the
    // person.
    m_current.reset(mayPrompt ? nullptr : g_cancellable_new());
    const auto reply = std::make_shared<Reply>();
    start(m_current.get(), take, std::make_unique<std::shared_ptr<Reply>>(reply).release());
    if (!mayPrompt) {
        startTimer(m_answerLimit, [](gpointer self) -> gboolean {
            static_cast<SecretLoop *>(self)->m_isTooLate = true;
            static_cast<SecretLoop *>(self)->giveUp();
            return G_SOURCE_REMOVE;
        });
    }
    while (!reply->result && !m_isAbandoned) {
        turn();
    }
    m_timer.reset();
    m_current.reset();
    return std::move(reply->result);
}

void SecretLoop::giveUp() {
    if (!m_current) {
        m_isAbandoned = true;
    } else {
        g_cancellable_cancel(m_current.get());
        startTimer(endGrace, [](gpointer self) -> gboolean {
            static_cast<SecretLoop *>(self)->m_isAbandoned = true;
            return G_SOURCE_REMOVE;
        });
    }
}

void SecretLoop::startTimer(std::chrono::milliseconds delay, GSourceFunc fired) {
    m_timer.reset(g_timeout_source_new(static_cast<guint>(delay.count())));
    g_source_set_callback(m_timer.get(), fired, this, nullptr);
    g_source_attach(m_timer.get(), m_context.get());
}

bool SecretLoop::takeTooLate() {
    return std::exchange(m_isTooLate, false);
}

void SecretLoop::cancel() {
    // On the loop's own thread, since what hears of it belongs to that thread.
    g_main_context_invoke_full(
        m_context.get(), G_PRIORITY_HIGH,
        [](gpointer self) -> gboolean {
            static_cast<SecretLoop *>(self)->m_isCancelled = true;
            static_cast<SecretLoop *>(self)->giveUp();
            return G_SOURCE_REMOVE;
        },
        this, nullptr);
}

} // namespace zeph
