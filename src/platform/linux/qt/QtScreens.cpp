// SPDX-License-Identifier: MIT
#include "platform/linux/qt/QtScreens.h"

#include "platform/linux/qt/ScreenIdentity.h"
#include "platform/linux/qt/VisibleFrame.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <utility>

namespace zeph {

namespace {

// While no display is connected, the toolkit keeps a nameless one alive.
bool isPlaceholder(const QScreen &screen) {
    return screen.name().isEmpty();
}

std::vector<QScreen *> realScreens() {
    std::vector<QScreen *> real;
    const auto screens = QGuiApplication::screens();
    for (QScreen *screen : screens) {
        if (!isPlaceholder(*screen)) {
            real.push_back(screen);
        }
    }
    return real;
}

std::vector<QString> identitiesOf(const std::vector<QScreen *> &screens) {
    std::vector<ScreenFacts> facts;
    facts.reserve(screens.size());
    for (const QScreen *screen : screens) {
        facts.push_back(
            {screen->manufacturer(), screen->model(), screen->serialNumber(), screen->name()});
    }
    return screenIdentities(facts);
}

} // namespace

QtScreens::QtScreens(NativeGeometry nativeGeometry, ReservedMargins reservedMargins)
    : m_nativeGeometry(std::move(nativeGeometry)), m_reservedMargins(std::move(reservedMargins)) {
    QObject::connect(qGuiApp, &QGuiApplication::screenAdded, &m_context, [this](QScreen *screen) {
        watch(*screen);
        noteChange();
    });
    QObject::connect(qGuiApp, &QGuiApplication::screenRemoved, &m_context,
                     [this] { noteChange(); });
    QObject::connect(qGuiApp, &QGuiApplication::primaryScreenChanged, &m_context,
                     [this] { noteChange(); });
    const auto screens = QGuiApplication::screens();
    for (QScreen *screen : screens) {
        watch(*screen);
    }
}

std::vector<Screen> QtScreens::all() const {
    if (!m_known) {
        m_known = read();
    }
    return *m_known;
}

std::optional<Screen> QtScreens::main() const {
    const QScreen *primary = QGuiApplication::primaryScreen();
    if (!primary || isPlaceholder(*primary)) {
        return std::nullopt;
    }
    const auto screens = all();
    const auto found = std::find_if(screens.begin(), screens.end(), [&](const Screen &screen) {
        return screen.displayID == connectorNumber(primary->name());
    });
    return found == screens.end() ? std::nullopt : std::optional(*found);
}

std::vector<Screen> QtScreens::read() const {
    const auto screens = realScreens();
    const auto identities = identitiesOf(screens);
    std::vector<Screen> described;
    described.reserve(screens.size());
    for (std::size_t i = 0; i < screens.size(); ++i) {
        described.push_back(describe(*screens[i], identities[i]));
    }
    return described;
}

void QtScreens::setChangeHandler(std::function<void()> handler) {
    m_handler = std::move(handler);
}

void QtScreens::noteReservedMargins() {
    const auto screens = realScreens();
    const bool isKnown = m_known && m_known->size() == screens.size();
    const bool isSame =
        isKnown && std::equal(screens.begin(), screens.end(), m_known->begin(),
                              [this](const QScreen *screen, const Screen &known) {
                                  return visibleFrameOf(known, *screen) == known.visibleFrame;
                              });
    if (!isSame) {
        noteChange();
    }
}

void QtScreens::watch(QScreen &screen) {
    const auto note = [this] { noteChange(); };
    QObject::connect(&screen, &QScreen::geometryChanged, &m_context, note);
    // Raised for all displays when a panel of one of them changes.
    QObject::connect(&screen, &QScreen::availableGeometryChanged, &m_context,
                     [this] { noteReservedMargins(); });
    QObject::connect(&screen, &QScreen::logicalDotsPerInchChanged, &m_context, note);
}

void QtScreens::noteChange() {
    m_known.reset();
    // One plugged display raises a handful of signals in the same turn.
    if (std::exchange(m_changePending, true)) {
        return;
    }
    const auto tell = [this] {
        m_changePending = false;
        if (m_handler) {
            m_handler();
        }
    };
    QMetaObject::invokeMethod(&m_context, tell, Qt::QueuedConnection);
}

Screen QtScreens::describe(const QScreen &screen, const QString &identity) const {
    Screen described;
    described.displayID = connectorNumber(screen.name());
    described.persistentID = identity;
    described.frame = screen.geometry();
    described.scale = screen.devicePixelRatio();
    // The toolkit scales a display's size and leaves its origin in device pixels.
    const QSizeF size = described.frame.size() * described.scale;
    described.deviceFrame = QRect(screen.geometry().topLeft(), size.toSize());
    if (m_nativeGeometry && described.scale != 1) {
        described.deviceFrame = m_nativeGeometry(screen.name()).value_or(described.deviceFrame);
    }
    described.visibleFrame = visibleFrameOf(described, screen);
    return described;
}

QRectF QtScreens::visibleFrameOf(const Screen &described, const QScreen &screen) const {
    const QMargins reserved =
        m_reservedMargins ? m_reservedMargins(described.deviceFrame) : QMargins();
    // The toolkit's own value counts panels that are no windows too, but it comes from a work area
    // that all displays have in common, and so is of use for a lone one only.
    const bool isOfUse = !m_reservedMargins || screen.virtualSiblings().size() == 1;
    const QRectF available = isOfUse ? QRectF(screen.availableGeometry()) : described.frame;
    return visibleFrame(described.frame, available, reserved, described.scale);
}

} // namespace zeph
