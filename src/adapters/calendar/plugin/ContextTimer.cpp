// SPDX-License-Identifier: MIT
#include "adapters/calendar/plugin/ContextTimer.h"

#include <utility>

namespace zeph {

ContextTimer::ContextTimer(GMainContext *context, std::function<void()> action)
    : m_context(context), m_action(std::move(action)) {}

void ContextTimer::start(std::chrono::milliseconds delay) {
    m_source.reset(g_timeout_source_new(static_cast<guint>(delay.count())));
    g_source_set_callback(m_source.get(), &ContextTimer::fired, this, nullptr);
    g_source_attach(m_source.get(), m_context);
}

gboolean ContextTimer::fired(gpointer self) {
    auto *timer = static_cast<ContextTimer *>(self);
    timer->m_source.reset(); // before the action, which may start it again
    timer->m_action();
    return G_SOURCE_REMOVE;
}

} // namespace zeph
