// SPDX-License-Identifier: MIT
#include "adapters/session/wayland/ForeignToplevels.h"

#include "adapters/apps/OwnApplication.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace zeph {

namespace {

constexpr std::uint32_t kNewestManager = 3;

bool containsState(const wl_array &states, std::uint32_t wanted) {
    for (std::size_t at = 0; at + sizeof wanted <= states.size; at += sizeof wanted) {
        std::uint32_t state = 0;
        std::memcpy(&state, static_cast<const char *>(states.data) + at, sizeof state);
        if (state == wanted) {
            return true;
        }
    }
    return false;
}

} // namespace

/// A window of another program. What is told of it counts once the compositor says "done".
class ForeignToplevels::Toplevel {
public:
    Toplevel(ForeignToplevels &owner, zwlr_foreign_toplevel_handle_v1 *handle)
        : m_owner(owner), m_handle(handle) {
        static constexpr zwlr_foreign_toplevel_handle_v1_listener listener{
            .title = [](void *, zwlr_foreign_toplevel_handle_v1 *, const char *) {},
            .app_id =
                [](void *self, zwlr_foreign_toplevel_handle_v1 *, const char *name) {
                    static_cast<Toplevel *>(self)->m_toldName = QString::fromUtf8(name);
                },
            .output_enter = [](void *, zwlr_foreign_toplevel_handle_v1 *, wl_output *) {},
            .output_leave = [](void *, zwlr_foreign_toplevel_handle_v1 *, wl_output *) {},
            .state =
                [](void *self, zwlr_foreign_toplevel_handle_v1 *, wl_array *states) {
                    static_cast<Toplevel *>(self)->m_isToldActive =
                        containsState(*states, ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_ACTIVATED);
                },
            .done =
                [](void *self, zwlr_foreign_toplevel_handle_v1 *) {
                    static_cast<Toplevel *>(self)->take();
                },
            .closed =
                [](void *self, zwlr_foreign_toplevel_handle_v1 *) {
                    auto *const toplevel = static_cast<Toplevel *>(self);
                    toplevel->m_owner.remove(*toplevel);
                },
            .parent = [](void *, zwlr_foreign_toplevel_handle_v1 *,
                         zwlr_foreign_toplevel_handle_v1 *) {}};
        zwlr_foreign_toplevel_handle_v1_add_listener(handle, &listener, this);
    }

    const QString &name() const { return m_name; }
    bool isActive() const { return m_isActive; }

private:
    void take() {
        const bool isOther = m_name != m_toldName || m_isActive != m_isToldActive;
        m_name = m_toldName;
        m_isActive = m_isToldActive;
        if (isOther) {
            m_owner.update();
        }
    }

    ForeignToplevels &m_owner;
    WaylandHandle<zwlr_foreign_toplevel_handle_v1> m_handle;
    QString m_toldName;
    bool m_isToldActive = false;
    QString m_name;
    bool m_isActive = false;
};

std::unique_ptr<ForeignToplevels> ForeignToplevels::create(WaylandConnection &connection,
                                                           DesktopEntries &entries) {
    auto manager = connection.bindFirst<zwlr_foreign_toplevel_manager_v1>(
        zwlr_foreign_toplevel_manager_v1_interface, kNewestManager);
    return manager ? std::unique_ptr<ForeignToplevels>(
                         new ForeignToplevels(std::move(manager), entries))
                   : nullptr;
}

ForeignToplevels::ForeignToplevels(WaylandHandle<zwlr_foreign_toplevel_manager_v1> manager,
                                   DesktopEntries &entries)
    : m_front(entries), m_manager(std::move(manager)) {
    static constexpr zwlr_foreign_toplevel_manager_v1_listener listener{
        .toplevel =
            [](void *self, zwlr_foreign_toplevel_manager_v1 *,
               zwlr_foreign_toplevel_handle_v1 *handle) {
                static_cast<ForeignToplevels *>(self)->add(handle);
            },
        .finished =
            [](void *self, zwlr_foreign_toplevel_manager_v1 *) {
                static_cast<ForeignToplevels *>(self)->finish();
            }};
    zwlr_foreign_toplevel_manager_v1_add_listener(m_manager.get(), &listener, this);
}

ForeignToplevels::~ForeignToplevels() = default;

Subscription
ForeignToplevels::subscribeToActivations(std::function<void(const RunningApplication &)> handler) {
    return m_front.subscribeToActivations(std::move(handler));
}

void ForeignToplevels::add(zwlr_foreign_toplevel_handle_v1 *handle) {
    m_toplevels.push_back(std::make_unique<Toplevel>(*this, handle));
}

void ForeignToplevels::remove(const Toplevel &toplevel) {
    std::erase_if(m_toplevels, [&](const auto &known) { return known.get() == &toplevel; });
    update();
}

void ForeignToplevels::update() {
    if (m_isFinished) {
        return;
    }
    // The newest one: between two windows both may be active for a moment.
    const auto active = std::find_if(m_toplevels.rbegin(), m_toplevels.rend(),
                                     [](const auto &known) { return known->isActive(); });
    if (active == m_toplevels.rend()) {
        m_front.set(std::nullopt);
        return;
    }
    // By custom the name of the desktop entry; where it isn't, often its last part is. An X11
    // window has its class here.
    const QString &name = (*active)->name();
    const ApplicationHints hints{.desktopFile = name,
                                 .gtkApplicationId = name,
                                 .windowClass = name,
                                 .windowInstance = {},
                                 .program = {}};
    m_front.set(isOwnApplication(hints) ? std::nullopt : std::optional(hints));
}

/// The compositor tells nothing of windows any more.
void ForeignToplevels::finish() {
    m_isFinished = true;
    m_front.set(std::nullopt);
}

} // namespace zeph
