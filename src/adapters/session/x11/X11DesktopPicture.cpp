// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11DesktopPicture.h"

#include "adapters/session/x11/X11Connection.h"
#include "adapters/session/x11/X11ServerGrab.h"
#include "base/Log.h"

#include <algorithm>
#include <utility>

namespace zeph {

namespace {

/// Whether both are the same pixels, wherever they are shown.
bool isSamePicture(const RootPixmapTarget &one, const RootPixmapTarget &other) {
    return one.pixmap == other.pixmap && one.size == other.size && one.depth == other.depth &&
           one.enlargement == other.enlargement;
}

// Within this time after the first stroke a desktop program tells that its picture is ready.
constexpr std::chrono::milliseconds kAnnouncementPatience{60};

// Enough for a program that paints and announces one monitor after the other.
constexpr int kAnswersPerBurst = 10;

} // namespace

X11DesktopPicture::Claim::Claim(X11DesktopPicture &picture, const QRect &area,
                                std::function<void()> repaint)
    : m_picture(picture), m_area(area), m_repaint(std::move(repaint)) {
    m_picture.m_claims.push_back(this);
}

X11DesktopPicture::Claim::~Claim() {
    m_picture.release(*this);
}

bool X11DesktopPicture::isPossible(const X11Connection &connection) {
    return connection.extension(X11Extension::damage) && connection.extension(X11Extension::xfixes);
}

X11DesktopPicture::X11DesktopPicture(X11Connection &connection, std::function<void()> askForItsOwn,
                                     std::function<void()> isGone)
    : X11EventListener(connection),
      m_askForItsOwn(std::move(askForItsOwn)),
      m_isGone(std::move(isGone)),
      m_answers([this] { answerTheirPainting(); }) {
    m_unannounced.setSingleShot(true);
    m_unannounced.setInterval(kAnnouncementPatience);
    QObject::connect(&m_unannounced, &QTimer::timeout, &m_unannounced,
                     [this] { answerTheirPainting(); });
    if (!isPossible(connection)) {
        return;
    }
    m_damageEvent = connection.extension(X11Extension::damage)->first_event;
    // The server refuses every other request of the extensions before these.
    xcb_connection_t *xcb = connection.xcb();
    xcb_discard_reply(xcb, xcb_damage_query_version(xcb, 1, 1).sequence);
    xcb_discard_reply(xcb, xcb_xfixes_query_version(xcb, 2, 0).sequence);
    m_painted = xcb_generate_id(xcb);
    xcb_xfixes_create_region(xcb, m_painted, 0, nullptr);
    connection.selectOnRoot(XCB_EVENT_MASK_PROPERTY_CHANGE);
}

X11DesktopPicture::~X11DesktopPicture() {
    setTarget(std::nullopt);
    if (m_painted != 0) {
        xcb_xfixes_destroy_region(connection().xcb(), m_painted);
    }
    xcb_flush(connection().xcb());
}

void X11DesktopPicture::setTarget(const std::optional<RootPixmapTarget> &target) {
    m_lost.reset();
    if (target == m_target || m_damageEvent < 0) {
        return;
    }
    const bool isUsable = target && refusalOf(*target).isEmpty();
    if (isUsable && isThere() && isSamePicture(*target, *m_target)) {
        // Its pixels are ours by now, and must not pass for theirs.
        m_target = target;
        m_earlier->noteWindows(target->windows);
        repaintAll();
        return;
    }
    leaveItAsItWas();
    m_lost.reset(); // leaving may find the former one gone
    m_target = target;
    m_isRefused = false;
    if (isUsable) {
        takeTarget(*target);
    }
}

void X11DesktopPicture::takeTarget(const RootPixmapTarget &target) {
    followTheirPainting(); // first: what they paint from here on is kept anew
    X11EarlierPicture::Kept kept = X11EarlierPicture::keep(connection(), target);
    m_earlier = std::move(kept.picture);
    if (kept.refusal == X11EarlierPicture::Refusal::pictureIsGone) {
        stopFollowing();
        m_lost = std::exchange(m_target, std::nullopt);
        m_isGone();
        return;
    }
    if (!m_earlier) {
        qCInfo(logSession) << "the X server has no room for a copy of the desktop's picture";
        stopFollowing();
        m_isRefused = true;
        return;
    }
    const bool isOfFormerRun = m_earlier->origin() == X11EarlierPicture::Origin::formerRun;
    if (isOfFormerRun) {
        // That run was killed, and left its pixels wherever it had a surface.
        putBack(QRect(QPoint(), target.size * target.enlargement));
    }
    repaintAll();
    if (isOfFormerRun) {
        m_askForItsOwn();
    }
}

/// What has the picture's number by now is another, or nothing of the desktop program's at all.
void X11DesktopPicture::forgetPicture() {
    m_damage = 0; // gone with the picture
    m_earlier.reset();
    m_lost = std::exchange(m_target, std::nullopt);
    m_unannounced.start();
}

void X11DesktopPicture::leaveItAsItWas() {
    m_unannounced.stop();
    if (!isThere()) {
        return;
    }
    QRegion ours;
    for (const Claim *claim : m_claims) {
        ours += claim->area();
    }
    putBack(ours);
    stopFollowing();
    m_earlier.reset(); // its record makes way for the next one
}

std::unique_ptr<X11DesktopPicture::Claim> X11DesktopPicture::claim(const QRect &area,
                                                                   std::function<void()> repaint) {
    return std::unique_ptr<Claim>(new Claim(*this, area, std::move(repaint)));
}

void X11DesktopPicture::release(const Claim &claim) {
    std::erase(m_claims, &claim);
    QRegion free = claim.area();
    for (const Claim *other : m_claims) {
        free -= other->area();
    }
    putBack(free);
}

void X11DesktopPicture::putBack(const QRegion &region) {
    change(region, [&] { m_earlier->putBack(inPicture(*m_target, region)); });
}

void X11DesktopPicture::paint(const QRegion &region,
                              const std::function<void(const X11Canvas &)> &put) {
    change(region, [&] {
        put({.window = m_target->pixmap,
             .context = m_earlier->context(),
             .depth = m_target->depth,
             .canVanish = true});
    });
}

/// Makes a change of ours, which is not to pass for one of theirs.
void X11DesktopPicture::change(const QRegion &region, const std::function<void()> &change) {
    if (!isThere() || region.isEmpty()) {
        return;
    }
    {
        const X11ServerGrab grab(connection().xcb());
        if (keepWhatTheyPainted()) {
            stopFollowing();
            change();
            followTheirPainting();
        } else {
            m_damage = 0;
        }
    }
    if (m_damage == 0) {
        forgetPicture();
        return;
    }
    for (const xcb_window_t window : m_target->windows) {
        for (const QRect &rect : region) {
            xcb_clear_area(connection().xcb(), 1, window, static_cast<std::int16_t>(rect.x()),
                           static_cast<std::int16_t>(rect.y()),
                           static_cast<std::uint16_t>(rect.width()),
                           static_cast<std::uint16_t>(rect.height()));
        }
    }
    xcb_flush(connection().xcb());
}

/// False when the picture is gone. A desktop program may take and free pixmaps in turns, whose
/// numbers repeat; what followed the one does not follow the other.
bool X11DesktopPicture::keepWhatTheyPainted() {
    xcb_connection_t *xcb = connection().xcb();
    const auto taken = xcb_damage_subtract_checked(xcb, m_damage, XCB_NONE, m_painted);
    if (const X11Reply<xcb_generic_error_t> gone{xcb_request_check(xcb, taken)}) {
        return false;
    }
    m_earlier->keepAnew(m_painted);
    return true;
}

void X11DesktopPicture::followTheirPainting() {
    m_damage = xcb_generate_id(connection().xcb());
    xcb_damage_create(connection().xcb(), m_damage, m_target->pixmap,
                      XCB_DAMAGE_REPORT_LEVEL_NON_EMPTY);
}

void X11DesktopPicture::stopFollowing() {
    if (const auto damage = std::exchange(m_damage, 0)) {
        xcb_damage_destroy(connection().xcb(), damage);
    }
}

/// Not without end, as a program may answer ours in turn.
void X11DesktopPicture::answerTheirPainting() {
    if (!m_answers.allows(kAnswersPerBurst)) {
        return;
    }
    if (const auto lost = m_lost) {
        setTarget(lost);
    } else {
        repaintAll();
    }
}

void X11DesktopPicture::repaintAll() {
    m_unannounced.stop();
    const auto claims = m_claims;
    for (const Claim *claim : claims) {
        claim->m_repaint();
    }
}

void X11DesktopPicture::handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) {
    if (!isThere() && !m_lost) {
        return;
    }
    if (kind == XCB_PROPERTY_NOTIFY) {
        const auto &notify = eventAs<xcb_property_notify_event_t>(event);
        if (notify.window == connection().root() &&
            notify.atom == connection().atom(X11Atom::rootPixmap) &&
            notify.state == XCB_PROPERTY_NEW_VALUE) {
            answerTheirPainting();
        }
    } else if (kind == m_damageEvent + XCB_DAMAGE_NOTIFY &&
               eventAs<xcb_damage_notify_event_t>(event).damage == m_damage) {
        m_unannounced.start();
    }
}

} // namespace zeph
