// SPDX-License-Identifier: MIT
#include "adapters/session/wayland/EdgeProbes.h"

#include <algorithm>
#include <utility>

namespace zeph {

namespace {

constexpr std::uint32_t kFourEdges =
    ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP | ZWLR_LAYER_SURFACE_V1_ANCHOR_BOTTOM |
    ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT | ZWLR_LAYER_SURFACE_V1_ANCHOR_RIGHT;
constexpr std::int32_t kKeepsClearOfPanels = 0;

} // namespace

struct EdgeProbes::Probe {
    EdgeProbes &owner;
    std::uint32_t output;
    WaylandHandle<wl_surface> surface;
    WaylandHandle<zwlr_layer_surface_v1> role;
};

EdgeProbes::EdgeProbes(const WaylandConnection &connection, WaylandOutputs &outputs,
                       std::function<void()> handler)
    : m_shell(LayerShell::bind(connection)),
      m_outputs(outputs),
      m_handler(std::move(handler)),
      m_places(outputs.subscribeToPlaces([this] { follow(); })) {
    follow();
}

EdgeProbes::~EdgeProbes() = default;

void EdgeProbes::follow() {
    if (!m_shell) {
        return;
    }
    std::vector<std::unique_ptr<Probe>> before = std::exchange(m_probes, {});
    for (const Screen &screen : m_outputs.all()) {
        const auto place = m_outputs.placeOf(screen);
        if (!place) {
            continue;
        }
        const auto known = std::find_if(before.begin(), before.end(), [&](const auto &probe) {
            return probe && probe->output == place->number;
        });
        m_probes.push_back(known == before.end() ? makeProbe(*place) : std::move(*known));
    }
}

std::unique_ptr<EdgeProbes::Probe> EdgeProbes::makeProbe(const WaylandOutputs::Place &place) {
    auto probe = std::make_unique<Probe>(Probe{*this, place.number, {}, {}});
    probe->surface.reset(wl_compositor_create_surface(m_shell->compositor.get()));
    const WaylandHandle<wl_region> nowhere(wl_compositor_create_region(m_shell->compositor.get()));
    wl_surface_set_input_region(probe->surface.get(), nowhere.get());
    probe->role.reset(zwlr_layer_shell_v1_get_layer_surface(
        m_shell->shell.get(), probe->surface.get(), place.output,
        ZWLR_LAYER_SHELL_V1_LAYER_BACKGROUND, "tavi-edges"));
    static constexpr zwlr_layer_surface_v1_listener listener{
        [](void *self, zwlr_layer_surface_v1 *role, std::uint32_t serial, std::uint32_t /*width*/,
           std::uint32_t /*height*/) {
            zwlr_layer_surface_v1_ack_configure(role, serial); // or the compositor keeps it
            static_cast<Probe *>(self)->owner.m_handler();
        },
        [](void *self, zwlr_layer_surface_v1 * /*role*/) {
            auto &closed = *static_cast<Probe *>(self);
            closed.role.reset();
            closed.surface.reset();
        }};
    zwlr_layer_surface_v1_add_listener(probe->role.get(), &listener, probe.get());
    zwlr_layer_surface_v1_set_size(probe->role.get(), 0, 0); // the compositor decides
    zwlr_layer_surface_v1_set_anchor(probe->role.get(), kFourEdges);
    zwlr_layer_surface_v1_set_exclusive_zone(probe->role.get(), kKeepsClearOfPanels);
    zwlr_layer_surface_v1_set_keyboard_interactivity(
        probe->role.get(), ZWLR_LAYER_SURFACE_V1_KEYBOARD_INTERACTIVITY_NONE);
    wl_surface_commit(probe->surface.get());
    return probe;
}

} // namespace zeph
