// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/calendar/plugin/GLibHandles.h"

#include <chrono>
#include <functional>

namespace zeph {

/// A single shot on one main context, to be used on that context's thread. Its end cancels it.
class ContextTimer {
public:
    ContextTimer(GMainContext *context, std::function<void()> action);
    ContextTimer(const ContextTimer &) = delete;
    ContextTimer &operator=(const ContextTimer &) = delete;

    /// Runs the action after `delay`; an earlier start is forgotten.
    void start(std::chrono::milliseconds delay);
    void stop() { m_source.reset(); }
    bool isRunning() const { return m_source != nullptr; }

private:
    static gboolean fired(gpointer self);

    GMainContext *m_context;
    std::function<void()> m_action;
    GLibPtr<GSource> m_source;
};

} // namespace zeph
