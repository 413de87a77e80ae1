// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11DrawingWay.h"

#include "adapters/session/choose/MechanismChoice.h"
#include "adapters/session/x11/X11Compositor.h"
#include "adapters/session/x11/X11Connection.h"
#include "adapters/session/x11/X11DesktopPicture.h"
#include "adapters/session/x11/X11DesktopProgram.h"
#include "adapters/session/x11/X11WindowManager.h"
#include "base/Log.h"

#include <utility>

namespace zeph {

namespace {

// A program that is replaced is gone for a moment, and one that starts tells of itself bit by bit.
constexpr int kRestMilliseconds = 200;

// One that we lie beneath may be making its windows anew, and surfaces that were made anew for that
// would come to lie above those. Longer than a busy one is waited for.
constexpr int kLongRestMilliseconds = 2500;

// A server may be full for a moment, such as at the login.
constexpr int kMoreTrials = 2;

Compositing compositingBy(const X11Connection &connection, xcb_window_t compositor,
                          xcb_window_t manager) {
    if (compositor == XCB_WINDOW_NONE) {
        return Compositing::none;
    }
    return connection.clientOf(compositor) == connection.clientOf(manager)
               ? Compositing::windowManager
               : Compositing::separateProgram;
}

} // namespace

X11DrawingWay::X11DrawingWay(SessionOffer known, const Parties &parties)
    : m_known(std::move(known)), m_parties(parties), m_trialsLeft(kMoreTrials) {
    m_rest.setSingleShot(true);
    QObject::connect(&m_rest, &QTimer::timeout, &m_rest, [this] { chooseOrWait(); });
    const auto news = [this] { chooseSoon(); };
    m_news.push_back(parties.compositor.subscribe(news));
    m_news.push_back(parties.manager.subscribe(news));
    m_news.push_back(parties.program.subscribe([this] { programChanged(); }));
}

Subscription X11DrawingWay::subscribe(std::function<void()> handler) {
    return m_changes.subscribe(std::move(handler));
}

void X11DrawingWay::chooseSoon() {
    if (m_isChosen && !m_rest.isActive()) {
        m_rest.start(kRestMilliseconds);
    }
}

void X11DrawingWay::chooseOrWait() {
    if (m_way.mechanism == DrawingMechanism::underDesktopProgram && !m_parties.program.found() &&
        !std::exchange(m_hasWaited, true)) {
        m_rest.start(kLongRestMilliseconds);
    } else {
        choose();
    }
}

void X11DrawingWay::programChanged() {
    if (!m_hasRoomForCopy && m_trialsLeft > 0) {
        --m_trialsLeft;
        m_hasRoomForCopy = true;
    }
    chooseSoon();
}

void X11DrawingWay::doWithoutPicture() {
    if (std::exchange(m_hasRoomForCopy, false)) {
        chooseSoon();
    }
}

void X11DrawingWay::noteTransparency(bool isTransparent) {
    if (std::exchange(m_known.isTransparent, isTransparent) != isTransparent) {
        chooseSoon();
    }
}

void X11DrawingWay::permitPlasma(const PlasmaPermission &permission) {
    if (std::exchange(m_known.plasma, permission) != permission && m_isChosen) {
        choose();
    }
}

void X11DrawingWay::choose() {
    m_rest.stop();
    m_hasWaited = false;
    const bool isFirst = !std::exchange(m_isChosen, true);
    const DrawingWay last = std::exchange(m_way, chooseDrawingWay(offer()));
    if (isFirst || m_way.reason != last.reason) {
        qCInfo(logSystem, "%s", qUtf8Printable(m_way.reason));
    }
    if (!isFirst && m_way != last) {
        m_changes.send();
    }
}

SessionOffer X11DrawingWay::offer() const {
    SessionOffer offer = m_known;
    const auto &manager = m_parties.manager.facts();
    offer.compositing = compositingBy(m_parties.connection, m_parties.compositor.owner(),
                                      manager ? manager->window : xcb_window_t{XCB_WINDOW_NONE});
    if (manager) {
        offer.windowManager = {manager->name, manager->knowsDesktopType};
    }
    if (const auto &program = m_parties.program.found()) {
        offer.desktopProgram = {program->kind,
                                X11DesktopPicture::isPossible(m_parties.connection) &&
                                    refusalOf(program->target()).isEmpty(),
                                program->windows.size() > 1 || program->isPixmapPartial,
                                m_hasRoomForCopy};
    }
    return offer;
}

} // namespace zeph
