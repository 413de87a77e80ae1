// SPDX-License-Identifier: MIT
#include "adapters/session/wayland/WaylandOutput.h"

#include <utility>

namespace zeph {

namespace {

// From this version on the end of a set is told by the output alone.
constexpr std::uint32_t kExactWithoutDone = 3;

WaylandOutput &outputOf(void *self) {
    return *static_cast<WaylandOutput *>(self);
}

} // namespace

WaylandOutput::WaylandOutput(std::uint32_t number, WaylandHandle<wl_output> output,
                             QString drmFolder, std::function<void()> changed)
    : m_number(number),
      m_output(std::move(output)),
      m_drmFolder(std::move(drmFolder)),
      m_changed(std::move(changed)) {
    listen();
}

void WaylandOutput::listen() {
    static constexpr wl_output_listener listener{
        [](void *self, wl_output * /*output*/, std::int32_t x, std::int32_t y,
           std::int32_t /*width*/, std::int32_t /*height*/, std::int32_t /*subpixel*/,
           const char *make, const char *model, std::int32_t transform) {
            WaylandOutput &output = outputOf(self);
            output.m_told.position = {x, y};
            output.m_told.transform = transform;
            output.m_names.make = QString::fromUtf8(make);
            output.m_names.model = QString::fromUtf8(model);
            output.noteWithoutDone();
        },
        [](void *self, wl_output * /*output*/, std::uint32_t flags, std::int32_t width,
           std::int32_t height, std::int32_t /*refresh*/) {
            if ((flags & WL_OUTPUT_MODE_CURRENT) != 0) {
                outputOf(self).m_told.mode = {width, height};
                outputOf(self).noteWithoutDone();
            }
        },
        [](void *self, wl_output * /*output*/) { outputOf(self).take(); },
        [](void *self, wl_output * /*output*/, std::int32_t factor) {
            outputOf(self).m_told.scale = factor;
        },
        [](void *self, wl_output * /*output*/, const char *name) {
            outputOf(self).m_names.connector = QString::fromUtf8(name);
        },
        [](void *self, wl_output * /*output*/, const char *description) {
            outputOf(self).m_names.description = QString::fromUtf8(description);
        }};
    wl_output_add_listener(m_output.get(), &listener, this);
}

void WaylandOutput::follow(zxdg_output_manager_v1 &manager) {
    m_exact.reset(zxdg_output_manager_v1_get_xdg_output(&manager, handle()));
    static constexpr zxdg_output_v1_listener listener{
        [](void *self, zxdg_output_v1 * /*output*/, std::int32_t x, std::int32_t y) {
            outputOf(self).m_told.logicalPosition = QPoint(x, y);
            outputOf(self).noteWithoutDone();
        },
        [](void *self, zxdg_output_v1 * /*output*/, std::int32_t width, std::int32_t height) {
            outputOf(self).m_told.logicalSize = QSize(width, height);
            outputOf(self).noteWithoutDone();
        },
        [](void *self, zxdg_output_v1 *output) {
            if (zxdg_output_v1_get_version(output) < kExactWithoutDone) {
                outputOf(self).take();
            }
        },
        [](void *self, zxdg_output_v1 * /*output*/, const char *name) {
            outputOf(self).m_names.connector = QString::fromUtf8(name);
            outputOf(self).noteWithoutDone();
        },
        [](void *self, zxdg_output_v1 * /*output*/, const char *description) {
            outputOf(self).m_names.description = QString::fromUtf8(description);
            outputOf(self).noteWithoutDone();
        }};
    zxdg_output_v1_add_listener(m_exact.get(), &listener, this);
}

/// The first version of the protocol does not tell where a set ends.
void WaylandOutput::noteWithoutDone() {
    if (wl_output_get_version(handle()) < WL_OUTPUT_DONE_SINCE_VERSION) {
        take();
    }
}

void WaylandOutput::take() {
    m_told.words = outputWords(m_names, m_drmFolder);
    if (m_told != m_facts) {
        m_facts = m_told;
        m_changed();
    }
}

} // namespace zeph
