// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/X11EventListener.h"
#include "base/ChangePublisher.h"

#include <functional>
#include <vector>

namespace zeph {

class X11DesktopProgram;
class X11DrawingWay;
class X11WindowManager;

/// Whether Nemo's icons lie beneath our windows though they are stacked above them: Muffin paints
/// desktop windows in the order in which they were mapped, whatever order it is asked for.
/// Followed without polling, while that manager runs and we draw beneath that desktop.
class X11IconCover : private X11EventListener {
public:
    struct Facts {
        std::vector<xcb_window_t> icons = {}; ///< Nemo's windows; none while it does not run
        bool areCovered = false;

        bool operator==(const Facts &) const = default;
    };

    /// Who tells of the rest; all outlive it.
    struct Parties {
        X11WindowManager &manager;
        X11DesktopProgram &program;
        X11DrawingWay &way;
    };

    X11IconCover(X11Connection &connection, const Parties &parties);

    const Facts &facts() const { return m_facts; }

    /// Calls `handler` whenever `facts` changed.
    [[nodiscard]] Subscription subscribe(std::function<void()> handler);

private:
    void handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) override;
    std::vector<xcb_window_t> icons() const;
    bool isOrderOfMapping() const;
    void follow();
    void take(Facts facts);

    Parties m_parties;
    Facts m_facts;
    ChangePublisher m_changes;
    bool m_isReading = false;
    bool m_readsAgain = false;
    std::vector<Subscription> m_news;
};

} // namespace zeph
