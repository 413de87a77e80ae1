// SPDX-License-Identifier: MIT
#include "support/CompositorThread.h"

#include <sys/eventfd.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

CompositorThread::CompositorThread()
    : m_socket(m_folder.filePath(u"display"_s).toLocal8Bit()),
      m_display(wl_display_create()),
      m_wakeUp(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    listen();
    m_wakeUps = wl_event_loop_add_fd(
        wl_display_get_event_loop(m_display), m_wakeUp, WL_EVENT_READABLE,
        [](int /*descriptor*/, std::uint32_t /*mask*/, void *self) {
            static_cast<CompositorThread *>(self)->runPosted();
            return 0;
        },
        this);
    m_thread = std::thread([this] { serve(); });
}

CompositorThread::~CompositorThread() {
    end();
    close(m_wakeUp);
}

void CompositorThread::listen() {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::copy(m_socket.begin(), m_socket.end(), std::begin(address.sun_path));
    const int listening = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    // The C interface takes every kind of address through this one pointer type.
    if (bind(listening, reinterpret_cast<sockaddr *>(&address), sizeof address) != 0 ||
        ::listen(listening, 8) != 0 || wl_display_add_socket_fd(m_display, listening) != 0) {
        throw std::runtime_error("the fake compositor can't listen");
    }
}

void CompositorThread::serve() {
    while (!m_isEnding) {
        wl_event_loop_dispatch(wl_display_get_event_loop(m_display), -1);
        wl_display_flush_clients(m_display);
    }
    wl_event_source_remove(m_wakeUps);
    wl_display_destroy_clients(m_display);
    wl_display_destroy(m_display);
}

void CompositorThread::post(std::function<void(wl_display *)> action) {
    {
        const std::lock_guard lock(m_mutex);
        m_posted.push_back(std::move(action));
    }
    eventfd_write(m_wakeUp, 1);
}

void CompositorThread::runPosted() {
    eventfd_t count = 0;
    eventfd_read(m_wakeUp, &count);
    std::vector<std::function<void(wl_display *)>> actions;
    {
        const std::lock_guard lock(m_mutex);
        actions.swap(m_posted);
    }
    for (const auto &action : actions) {
        action(m_display);
    }
}

void CompositorThread::run(const std::function<void(wl_display *)> &action) {
    if (!m_thread.joinable()) {
        return;
    }
    if (std::this_thread::get_id() == m_thread.get_id()) {
        action(m_display);
        return;
    }
    std::promise<void> done;
    post([&](wl_display *display) {
        action(display);
        wl_display_flush_clients(display);
        done.set_value();
    });
    done.get_future().wait();
}

void CompositorThread::freeze() {
    if (std::exchange(m_isFrozen, true)) {
        return;
    }
    m_thaw = {};
    post([thawed = m_thaw.get_future().share()](wl_display * /*display*/) { thawed.wait(); });
}

void CompositorThread::thaw() {
    if (std::exchange(m_isFrozen, false)) {
        m_thaw.set_value();
    }
}

void CompositorThread::end() {
    thaw();
    if (m_thread.joinable()) {
        post([this](wl_display * /*display*/) { m_isEnding = true; });
        m_thread.join();
    }
}

} // namespace zeph
