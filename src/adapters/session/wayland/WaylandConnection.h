// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/wayland/WaylandHandle.h"
#include "adapters/session/wayland/WaylandRoundTrip.h"
#include "base/ChangePublisher.h"

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>
#include <QString>

#include <algorithm>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace zeph {

/// Something that the compositor offers.
struct WaylandGlobal {
    std::uint32_t number = 0; ///< by which it is bound, never used twice
    QByteArray interface;
    std::uint32_t version = 1; ///< the newest that the compositor knows

    bool operator==(const WaylandGlobal &) const = default;
};

/// A connection to a Wayland compositor beside the toolkit's, driven by the main thread's event
/// loop. Nothing is ever polled: the socket wakes the loop. Objects made over it are ended before
/// it. Main thread only.
class WaylandConnection {
public:
    struct Opened {
        std::unique_ptr<WaylandConnection> connection;
        QString refusal; ///< what to tell the user where `connection` is null
    };

    /// Connects to the compositor of that name and waits, at most for `patience`, until it has told
    /// what it offers.
    static Opened open(const QByteArray &display,
                       std::chrono::milliseconds patience = compositorPatience);
    ~WaylandConnection();
    WaylandConnection(const WaylandConnection &) = delete;
    WaylandConnection &operator=(const WaylandConnection &) = delete;

    wl_display *display() const { return m_display.get(); }

    /// What is offered now, in the compositor's order.
    const std::vector<WaylandGlobal> &globals() const { return m_globals; }

    /// The first global of this interface, or none.
    std::optional<WaylandGlobal> global(const wl_interface &interface) const;

    /// Binds `global` in the newest version that both sides know; ours is `newest`.
    template <typename Object>
    WaylandHandle<Object> bind(const WaylandGlobal &global, const wl_interface &interface,
                               std::uint32_t newest) const {
        return WaylandHandle<Object>(static_cast<Object *>(wl_registry_bind(
            m_registry.get(), global.number, &interface, std::min(newest, global.version))));
    }

    /// The same with the first global of this interface; null where there is none.
    template <typename Object>
    WaylandHandle<Object> bindFirst(const wl_interface &interface, std::uint32_t newest) const {
        const auto found = global(interface);
        return found ? bind<Object>(*found, interface, newest) : nullptr;
    }

    /// Waits until the compositor has answered all that was asked of it; false when it did not
    /// within `patience`, or is gone. For the start only.
    bool waitForAnswers(std::chrono::milliseconds patience = compositorPatience);

    /// Calls `handler` after globals came or went, once for those that were told together.
    [[nodiscard]] Subscription subscribeToGlobals(std::function<void()> handler);

    /// Calls `handler` once, in a turn of the loop of its own, when the compositor went away or
    /// refused a request.
    [[nodiscard]] Subscription subscribeToLoss(std::function<void()> handler);

private:
    struct Disconnect {
        void operator()(wl_display *display) const { wl_display_disconnect(display); }
    };
    using Handle = std::unique_ptr<wl_display, Disconnect>;

    explicit WaylandConnection(Handle display);
    void addGlobal(WaylandGlobal global);
    void removeGlobal(std::uint32_t number);
    void readEvents();
    bool deliverEvents();
    void tellOfGlobals();
    void flush();
    void noteLoss();

    Handle m_display;
    QObject m_context;
    QSocketNotifier m_readable;
    QSocketNotifier m_writable; // on while the compositor does not keep up with what we say
    std::vector<WaylandGlobal> m_globals;
    WaylandHandle<wl_registry> m_registry;
    ChangePublisher m_globalChanges;
    ChangePublisher m_loss;
    bool m_globalsChanged = false;
    bool m_isLost = false;
};

} // namespace zeph
