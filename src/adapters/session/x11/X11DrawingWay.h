// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/choose/SessionOffer.h"
#include "base/ChangePublisher.h"
#include "ports/DrawingWay.h"

#include <QTimer>

#include <functional>
#include <vector>

namespace zeph {

class X11Compositor;
class X11Connection;
class X11DesktopProgram;
class X11WindowManager;

/// By what the wallpaper gets onto the desktop of an X server: chosen anew when window manager,
/// compositor or desktop program come, go or change.
class X11DrawingWay {
public:
    /// Who the choice goes by; all outlive it.
    struct Parties {
        const X11Connection &connection;
        X11Compositor &compositor;
        X11WindowManager &manager;
        X11DesktopProgram &program;
    };

    /// `known` is what the server can't tell of the session.
    X11DrawingWay(SessionOffer known, const Parties &parties);

    /// A window that lies behind all others, until the first choice.
    const DrawingWay &now() const { return m_way; }

    /// Chooses by what is known of the parties at this moment.
    void choose();

    /// Chooses another way soon where a desktop's picture would be painted into: the server has no
    /// room for a copy of it. It is tried again with the next news of the desktop program, a few
    /// times in all, since surfaces are made anew for each trial.
    void doWithoutPicture();

    /// Chooses the reason anew soon after the wallpaper became transparent, or ceased to be.
    void noteTransparency(bool isTransparent);

    /// Whether our wallpaper can take the place of Plasma's own; chooses at once by it.
    void permitPlasma(const PlasmaPermission &permission);

    /// Whether there was a choice yet.
    bool isChosen() const { return m_isChosen; }

    /// Calls `handler` whenever `now` changed after the first choice.
    [[nodiscard]] Subscription subscribe(std::function<void()> handler);

private:
    SessionOffer offer() const;
    void chooseSoon();
    void chooseOrWait();
    void programChanged();

    SessionOffer m_known;
    Parties m_parties;
    DrawingWay m_way;
    bool m_isChosen = false;
    bool m_hasWaited = false;
    bool m_hasRoomForCopy = true;
    int m_trialsLeft;
    ChangePublisher m_changes;
    QTimer m_rest; // from the first news until the next choice
    std::vector<Subscription> m_news;
};

} // namespace zeph
