// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QTemporaryDir>

#include <wayland-server-core.h>

#include <functional>
#include <future>
#include <mutex>
#include <thread>
#include <vector>

namespace zeph {

/// A Wayland display for a client in this process, served by a thread of its own. What it offers is
/// added by `run`.
class CompositorThread {
public:
    CompositorThread();
    ~CompositorThread();
    CompositorThread(const CompositorThread &) = delete;
    CompositorThread &operator=(const CompositorThread &) = delete;

    /// The path of the socket, for WAYLAND_DISPLAY.
    QByteArray socket() const { return m_socket; }

    /// Runs `action` between two requests of a client, and waits for that. What it sends is on its
    /// way then. Within another one it is part of that.
    void run(const std::function<void(wl_display *)> &action);

    /// Answers nothing until `thaw`. Connections are taken by the system all the same.
    void freeze();
    void thaw();

    /// Leaves all clients, as a crash would. `run` does nothing from then on.
    void end();

private:
    void listen();
    void serve();
    void post(std::function<void(wl_display *)> action);
    void runPosted();

    QTemporaryDir m_folder;
    QByteArray m_socket;
    wl_display *m_display;
    int m_wakeUp;
    wl_event_source *m_wakeUps = nullptr;
    std::mutex m_mutex; // for the next line
    std::vector<std::function<void(wl_display *)>> m_posted;
    std::promise<void> m_thaw;
    bool m_isFrozen = false;
    bool m_isEnding = false; // the thread's own
    std::thread m_thread;
};

} // namespace zeph
