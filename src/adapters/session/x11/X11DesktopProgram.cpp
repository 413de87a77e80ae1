// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11DesktopProgram.h"

#include "adapters/session/x11/X11DesktopWindows.h"
#include "adapters/session/x11/X11HeldPixmaps.h"
#include "adapters/session/x11/X11Properties.h"

#include <algorithm>
#include <utility>

namespace zeph {

namespace {

constexpr std::uint32_t kLongestClass = 64; // in 4-byte units
constexpr std::size_t kRepliesPerCandidate = 2;

std::uint32_t firstNumberIn(const X11AnyReply &reply) {
    const auto numbers = numbersIn(propertyIn(reply));
    return numbers.empty() ? 0 : numbers.front();
}

bool isPartial(const QSize &picture, const QSize &screen) {
    return picture.width() < screen.width() || picture.height() < screen.height();
}

std::optional<DesktopProgram> programIn(const X11AnyReply &windowClass, const X11AnyReply &gtkId) {
    // The instance, a zero, the class, a zero.
    const QByteArrayList names = bytesIn(propertyIn(windowClass)).split('\0');
    return desktopProgramOf(QString::fromLatin1(names.value(1)),
                            QString::fromUtf8(bytesIn(propertyIn(gtkId))));
}

} // namespace

X11DesktopProgram::X11DesktopProgram(X11Connection &connection, X11DesktopWindows &windows)
    : X11EventListener(connection), m_windows(windows), m_listing(windows.subscribe([this] {
          auto listed = windowsOfOthers();
          if (std::exchange(m_listed, std::move(listed)) != m_listed) {
              read();
          }
      })) {
    m_nextLook.setSingleShot(true);
    QObject::connect(&m_nextLook, &QTimer::timeout, &m_nextLook, [this] {
        read();
        lookLater();
    });
    connection.selectOnRoot(XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    read();
}

Subscription X11DesktopProgram::subscribe(std::function<void()> handler) {
    return m_changes.subscribe(std::move(handler));
}

std::vector<xcb_window_t> X11DesktopProgram::windowsOfOthers() const {
    std::vector<xcb_window_t> others = m_windows.all();
    std::erase_if(others, [this](xcb_window_t window) { return connection().isOwn(window); });
    return others;
}

void X11DesktopProgram::handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) {
    if (kind == XCB_DESTROY_NOTIFY) {
        const xcb_window_t window = eventAs<xcb_destroy_notify_event_t>(event).window;
        m_sizes.erase(window);
        if (m_watched.erase(window) > 0) {
            read();
        }
    } else if (kind == XCB_CONFIGURE_NOTIFY) {
        const auto &notify = eventAs<xcb_configure_notify_event_t>(event);
        if (notify.window == connection().root() || m_watched.contains(notify.window)) {
            noteSize(notify.window, {notify.width, notify.height});
        }
    } else if (isNews(kind, event)) {
        read();
    }
}

void X11DesktopProgram::noteSize(xcb_window_t window, const QSize &size) {
    if (std::exchange(m_sizes[window], size) == size || !m_found) {
        return;
    }
    if (m_found->kind == DesktopProgram::caja) {
        m_looks.begin();
        lookLater();
    } else if (window == connection().root()) {
        read(); // its picture may be as large as all monitors no longer, or by now
    }
}

void X11DesktopProgram::lookLater() {
    if (const auto rest = m_looks.next()) {
        m_nextLook.start(*rest);
    }
}

bool X11DesktopProgram::isNews(std::uint8_t kind, const xcb_generic_event_t &event) const {
    if (kind != XCB_PROPERTY_NOTIFY) {
        return false;
    }
    const auto &notify = eventAs<xcb_property_notify_event_t>(event);
    return notify.window == connection().root() &&
           (notify.atom == connection().atom(X11Atom::xfceDesktopWindow) ||
            notify.atom == connection().atom(X11Atom::cajaDesktopWindow) ||
            notify.atom == connection().atom(X11Atom::rootPixmap));
}

void X11DesktopProgram::read() {
    // Programs that start write several things at once: they are read together.
    if (std::exchange(m_isReading, true)) {
        m_readsAgain = true;
        return;
    }
    const auto ask = [this](X11Atom property) {
        return requestProperty(connection(), connection().root(), connection().atom(property),
                               XCB_ATOM_ANY, 1);
    };
    const unsigned screen = xcb_get_geometry(connection().xcb(), connection().root()).sequence;
    connection().whenReplied(
        *this,
        {ask(X11Atom::xfceDesktopWindow), ask(X11Atom::cajaDesktopWindow), ask(X11Atom::rootPixmap),
         screen},
        [this](const X11Connection::Replies &replies) {
            m_screenSize = sizeIn(replies[3]);
            // Where no window manager lists windows these two still tell of themselves.
            std::vector<xcb_window_t> candidates{firstNumberIn(replies[0]),
                                                 firstNumberIn(replies[1])};
            std::erase_if(candidates, [this](xcb_window_t window) {
                return window == XCB_WINDOW_NONE ||
                       std::find(m_listed.begin(), m_listed.end(), window) != m_listed.end();
            });
            candidates.insert(candidates.end(), m_listed.begin(), m_listed.end());
            readCandidates(std::move(candidates), firstNumberIn(replies[2]));
        });
}

void X11DesktopProgram::readCandidates(std::vector<xcb_window_t> candidates, xcb_pixmap_t pixmap) {
    // Before they are looked at, so that their end is told whenever it comes.
    watch(candidates);
    std::vector<unsigned> requests;
    requests.reserve(candidates.size() * kRepliesPerCandidate);
    for (const xcb_window_t window : candidates) {
        requests.push_back(requestProperty(connection(), window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING,
                                           kLongestClass));
        requests.push_back(requestProperty(connection(), window,
                                           connection().atom(X11Atom::gtkApplicationId),
                                           XCB_ATOM_ANY, kLongestClass));
    }
    connection().whenReplied(
        *this, std::move(requests),
        [this, candidates = std::move(candidates), pixmap](const X11Connection::Replies &replies) {
            auto found = describe(candidates, replies);
            if (found && pixmap != XCB_PIXMAP_NONE) {
                readMaker(*std::move(found), pixmap);
            } else {
                take(std::move(found));
            }
        });
}

void X11DesktopProgram::readMaker(Found found, xcb_pixmap_t pixmap) {
    const xcb_window_t window = found.windows.front();
    askForMaker(connection(), *this, window, pixmap,
                [this, found = std::move(found), pixmap](bool isAnothers) mutable {
                    if (isAnothers) {
                        take(std::move(found));
                    } else {
                        readPixmap(std::move(found), pixmap);
                    }
                });
}

void X11DesktopProgram::watch(const std::vector<xcb_window_t> &candidates) {
    std::erase_if(m_watched, [&](xcb_window_t window) {
        return std::find(candidates.begin(), candidates.end(), window) == candidates.end();
    });
    for (const xcb_window_t window : candidates) {
        if (m_watched.insert(window).second) {
            const std::uint32_t mask = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
            xcb_change_window_attributes(connection().xcb(), window, XCB_CW_EVENT_MASK, &mask);
        }
    }
}

/// Of several programs the one that lies on top is the one whose icons people see.
std::optional<X11DesktopProgram::Found>
X11DesktopProgram::describe(const std::vector<xcb_window_t> &candidates,
                            const X11Connection::Replies &replies) {
    std::optional<Found> found;
    for (std::size_t i = candidates.size(); i-- > 0;) {
        // A window that is gone has no class.
        const auto program =
            programIn(replies[kRepliesPerCandidate * i], replies[kRepliesPerCandidate * i + 1]);
        if (program && (!found || found->kind == *program)) {
            if (!found) {
                found = Found{.kind = *program};
            }
            found->windows.insert(found->windows.begin(), candidates[i]);
        }
    }
    return found;
}

void X11DesktopProgram::readPixmap(Found found, xcb_pixmap_t pixmap) {
    const unsigned geometry = xcb_get_geometry(connection().xcb(), pixmap).sequence;
    // Only a window has any, and nobody is to paint into one of others.
    const unsigned attributes = xcb_get_window_attributes(connection().xcb(), pixmap).sequence;
    const unsigned window = xcb_get_geometry(connection().xcb(), found.windows.front()).sequence;
    connection().whenReplied(
        *this, {geometry, attributes, window},
        [this, found = std::move(found), pixmap](const X11Connection::Replies &replies) mutable {
            const auto *place = static_cast<const xcb_get_geometry_reply_t *>(replies[0].get());
            if (place && !replies[1] && (place->depth == 24 || place->depth == 32)) {
                found.pixmap = pixmap;
                found.pixmapSize = {place->width, place->height};
                found.pixmapDepth = place->depth;
            }
            const auto *whole = static_cast<const xcb_get_geometry_reply_t *>(replies[2].get());
            if (found.kind == DesktopProgram::caja && whole) {
                const QSize size(whole->width, whole->height);
                found.enlargement = m_enlargement.take(found.pixmapSize, size);
                const PixmapForm fitting{.size = size / found.enlargement,
                                         .depth = connection().screen().root_depth};
                lookForSilentPicture(std::move(found), fitting);
            } else {
                take(std::move(found));
            }
        });
}

void X11DesktopProgram::lookForSilentPicture(Found found, const PixmapForm &whole) {
    const xcb_window_t window = found.windows.front();
    findHeldPixmaps(
        connection(), *this, window,
        [this, found = std::move(found), whole](const std::vector<PixmapForm> &held) mutable {
            const auto silent =
                m_silent.take({found.pixmap, found.pixmapSize, found.pixmapDepth}, held, whole);
            if (silent) {
                found.pixmap = silent->pixmap;
                found.pixmapSize = silent->size;
                found.pixmapDepth = silent->depth;
                found.isPixmapAnnounced = false;
            }
            take(std::move(found));
        });
}

void X11DesktopProgram::take(std::optional<Found> found) {
    m_isReading = false;
    if (found && found->pixmap != XCB_PIXMAP_NONE) {
        found->isPixmapPartial = isPartial(found->pixmapSize * found->enlargement, m_screenSize);
    }
    const bool isChanged = std::exchange(m_found, std::move(found)) != m_found;
    if (std::exchange(m_readsAgain, false)) {
        read();
    }
    if (isChanged) {
        m_changes.send();
    }
}

} // namespace zeph
