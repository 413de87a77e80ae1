// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/wayland/OutputScreens.h"
#include "adapters/session/wayland/OutputWords.h"
#include "adapters/session/wayland/WaylandHandle.h"

#include <functional>

namespace zeph {

/// One output of a compositor, followed.
class WaylandOutput {
public:
    /// `changed` is called whenever the compositor has told a set of facts that belong together.
    WaylandOutput(std::uint32_t number, WaylandHandle<wl_output> output, QString drmFolder,
                  std::function<void()> changed);
    WaylandOutput(const WaylandOutput &) = delete;
    WaylandOutput &operator=(const WaylandOutput &) = delete;
    ~WaylandOutput() = default;

    /// Asks for the exact size in points too; once.
    void follow(zxdg_output_manager_v1 &manager);
    bool isFollowedExactly() const { return m_exact != nullptr; }

    std::uint32_t number() const { return m_number; } ///< of the compositor's global
    wl_output *handle() const { return m_output.get(); }
    const OutputFacts &facts() const { return m_facts; }

private:
    void listen();
    void take();
    void noteWithoutDone();

    std::uint32_t m_number;
    WaylandHandle<wl_output> m_output;
    WaylandHandle<zxdg_output_v1> m_exact;
    QString m_drmFolder;
    std::function<void()> m_changed;
    OutputNames m_names;
    OutputFacts m_told;  // so far
    OutputFacts m_facts; // as of the last complete set
};

} // namespace zeph
