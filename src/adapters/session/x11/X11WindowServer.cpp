// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11WindowServer.h"

#include "adapters/session/x11/OwnPictureCommand.h"
#include "adapters/session/x11/X11Connection.h"
#include "adapters/session/x11/X11DesktopSurface.h"
#include "adapters/session/x11/X11RootPixmapSurface.h"

#include <QProcess>

#include <utility>

namespace zeph {

namespace {

constexpr std::uint8_t kOpaque = 24;
constexpr std::uint8_t kWithAlpha = 32;

std::optional<RootPixmapTarget> pictureOf(const std::optional<X11DesktopProgram::Found> &program) {
    return program ? std::optional(program->target()) : std::nullopt;
}

/// Has the program paint its own picture anew, where it knows how.
void askForItsPicture(const std::optional<X11DesktopProgram::Found> &program) {
    const QStringList command = program ? ownPictureCommand(program->kind) : QStringList();
    if (!command.isEmpty()) {
        QProcess::startDetached(command.first(), command.mid(1));
    }
}

} // namespace

std::unique_ptr<X11WindowServer> X11WindowServer::create(X11Connection &connection,
                                                         const SessionOffer &known) {
    const auto opaque = findVisual(connection, kOpaque);
    return opaque
               ? std::unique_ptr<X11WindowServer>(new X11WindowServer(connection, *opaque, known))
               : nullptr;
}

X11WindowServer::X11WindowServer(X11Connection &connection, const X11Visual &opaque,
                                 const SessionOffer &known)
    : m_connection(connection),
      m_opaque(opaque),
      m_withAlpha(findVisual(connection, kWithAlpha)),
      m_manager(connection),
      m_windows(connection),
      m_program(connection, m_windows),
      m_compositor(connection),
      m_way(known, {connection, m_compositor, m_manager, m_program}),
      m_iconCover(connection, {m_manager, m_program, m_way}),
      m_stacking(connection, m_windows, m_manager),
      m_programChanges(m_program.subscribe([this] { followPicture(); })),
      m_wayChanges(m_way.subscribe([this] {
          followPicture();
          mendPicture();
      })) {}

void X11WindowServer::settle() {
    if (!m_way.isChosen()) {
        m_connection.waitForReplies();
        m_way.choose();
        mendPicture();
    }
}

std::unique_ptr<DesktopSurface> X11WindowServer::makeDesktopSurface(const Screen &screen,
                                                                    bool wantsTransparency) {
    settle();
    followPicture();
    // Without a compositor alpha is ignored, and every other surface is cheaper opaque.
    const bool isTransparent = wantsTransparency && m_withAlpha && m_compositor.isRunning();
    m_way.noteTransparency(isTransparent);
    // Through a transparent surface icons are seen and clicked from above, too.
    if (m_picture && m_way.now().mechanism == DrawingMechanism::rootPixmap && !isTransparent) {
        return std::make_unique<X11RootPixmapSurface>(m_connection, *m_picture, screen);
    }
    return std::make_unique<X11DesktopSurface>(m_connection, m_stacking, place(),
                                               isTransparent ? *m_withAlpha : m_opaque, screen);
}

DesktopPlace X11WindowServer::place() const {
    switch (m_way.now().mechanism) {
    case DrawingMechanism::underDesktopProgram:
        return DesktopPlace::belowDesktops;
    case DrawingMechanism::loweredOverride:
        return DesktopPlace::beneathManaged;
    case DrawingMechanism::desktopWindow:
    case DrawingMechanism::rootPixmap:
    case DrawingMechanism::layerSurface:
    case DrawingMechanism::plasmaPictures:
        break;
    }
    return DesktopPlace::aboveDesktops;
}

void X11WindowServer::followPicture() {
    const bool isPaintedInto = m_way.now().mechanism == DrawingMechanism::rootPixmap;
    if (isPaintedInto && !m_picture && X11DesktopPicture::isPossible(m_connection)) {
        m_picture = std::make_unique<X11DesktopPicture>(
            m_connection, [this] { askForItsPicture(m_program.found()); },
            [this] { m_program.lookAgain(); });
    }
    if (m_picture) {
        m_picture->setTarget(isPaintedInto ? pictureOf(m_program.found()) : std::nullopt);
        if (m_picture->isRefused()) {
            m_way.doWithoutPicture();
        }
    }
}

/// A killed run may have painted into a picture that this one leaves alone.
void X11WindowServer::mendPicture() {
    if (m_way.now().mechanism != DrawingMechanism::rootPixmap) {
        restoreDesktopPicture(m_connection);
    }
}

Subscription X11WindowServer::subscribeToDrawingWay(std::function<void()> handler) {
    return m_way.subscribe(std::move(handler));
}

Subscription X11WindowServer::subscribeToCompositing(std::function<void()> handler) {
    return m_compositor.subscribe(std::move(handler));
}

Subscription X11WindowServer::subscribeToLoss(std::function<void()> handler) {
    return m_connection.subscribeToLoss(std::move(handler));
}

} // namespace zeph
