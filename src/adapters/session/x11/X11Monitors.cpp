// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11Monitors.h"

#include "adapters/session/identity/Edid.h"
#include "adapters/session/x11/X11Connection.h"
#include "adapters/session/x11/X11Properties.h"

#include <xcb/randr.h>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr std::uint32_t kLongestEdid = 64; // in 4-byte units; only the first block counts
constexpr std::uint32_t kLongestResources = 256 * 1024; // likewise
constexpr std::size_t kRepliesPerMonitor = 2;

bool knowsMonitors(X11Connection &connection) {
    if (!connection.extension(X11Extension::randr)) {
        return false;
    }
    // The server hides monitors from those who have not announced version 1.5.
    const X11Reply<xcb_randr_query_version_reply_t> version(xcb_randr_query_version_reply(
        connection.xcb(), xcb_randr_query_version(connection.xcb(), 1, 5), nullptr));
    return version &&
           std::pair(version->major_version, version->minor_version) >= std::pair(1U, 5U);
}

QString atomNameIn(const X11AnyReply &reply) {
    auto *name = static_cast<xcb_get_atom_name_reply_t *>(reply.get());
    return name ? QString::fromUtf8(xcb_get_atom_name_name(name),
                                    xcb_get_atom_name_name_length(name))
                : QString();
}

EdidWords edidIn(const X11AnyReply &reply) {
    auto *property = static_cast<xcb_randr_get_output_property_reply_t *>(reply.get());
    if (!property || property->format != 8) {
        return {};
    }
    // The C interface counts bytes as such, and gives them without a sign.
    const auto *bytes =
        reinterpret_cast<const char *>(xcb_randr_get_output_property_data(property));
    return readEdid(QByteArray(bytes, xcb_randr_get_output_property_data_length(property)));
}

QRect geometryIn(const X11AnyReply &reply) {
    const auto *geometry = static_cast<const xcb_get_geometry_reply_t *>(reply.get());
    return geometry ? QRect(0, 0, geometry->width, geometry->height) : QRect();
}

QRect geometryOf(const xcb_randr_monitor_info_t &monitor) {
    return {monitor.x, monitor.y, monitor.width, monitor.height};
}

/// Whether it shows nothing but what another one shows, too: a mirror may be smaller. Of equal ones
/// the first counts.
bool isMirror(std::size_t place, const std::vector<xcb_randr_monitor_info_t *> &monitors) {
    const QRect own = geometryOf(*monitors[place]);
    for (std::size_t i = 0; i < monitors.size(); ++i) {
        const QRect other = geometryOf(*monitors[i]);
        if (i != place && other.contains(own) && (other != own || i < place)) {
            return true;
        }
    }
    return false;
}

std::vector<xcb_randr_monitor_info_t *> monitorsIn(const X11AnyReply &reply) {
    std::vector<xcb_randr_monitor_info_t *> found;
    const auto *monitors = static_cast<const xcb_randr_get_monitors_reply_t *>(reply.get());
    if (monitors) {
        for (auto it = xcb_randr_get_monitors_monitors_iterator(monitors); it.rem > 0;
             xcb_randr_monitor_info_next(&it)) {
            found.push_back(it.data);
        }
    }
    std::stable_partition(found.begin(), found.end(),
                          [](const auto *monitor) { return monitor->primary != 0; });
    return found;
}

} // namespace

X11Monitors::X11Monitors(X11Connection &connection) : X11EventListener(connection) {
    connection.selectOnRoot(XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    if (knowsMonitors(connection)) {
        m_firstEvent = connection.extension(X11Extension::randr)->first_event;
        xcb_randr_select_input(
            connection.xcb(), connection.root(),
            XCB_RANDR_NOTIFY_MASK_SCREEN_CHANGE | XCB_RANDR_NOTIFY_MASK_CRTC_CHANGE |
                XCB_RANDR_NOTIFY_MASK_OUTPUT_CHANGE | XCB_RANDR_NOTIFY_MASK_OUTPUT_PROPERTY);
    }
    read();
    connection.waitForReplies();
}

void X11Monitors::handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) {
    if (isNews(kind, event)) {
        read();
    }
}

bool X11Monitors::isNews(std::uint8_t kind, const xcb_generic_event_t &event) const {
    if (kind == XCB_PROPERTY_NOTIFY) {
        const auto &notify = eventAs<xcb_property_notify_event_t>(event);
        return notify.window == connection().root() && notify.atom == XCB_ATOM_RESOURCE_MANAGER;
    }
    if (kind == XCB_CONFIGURE_NOTIFY) { // also sent when a monitor is defined by hand
        return eventAs<xcb_configure_notify_event_t>(event).window == connection().root();
    }
    return m_firstEvent >= 0 && (kind == m_firstEvent + XCB_RANDR_SCREEN_CHANGE_NOTIFY ||
                                 kind == m_firstEvent + XCB_RANDR_NOTIFY);
}

void X11Monitors::read() {
    // One plugged display raises a handful of events; what comes meanwhile is read together.
    if (std::exchange(m_isReading, true)) {
        m_readsAgain = true;
        return;
    }
    xcb_connection_t *xcb = connection().xcb();
    const unsigned monitors = m_firstEvent >= 0
                                  ? xcb_randr_get_monitors(xcb, connection().root(), 1).sequence
                                  : xcb_get_geometry(xcb, connection().root()).sequence;
    const unsigned resources =
        requestProperty(connection(), connection().root(), XCB_ATOM_RESOURCE_MANAGER,
                        XCB_ATOM_STRING, kLongestResources);
    connection().whenReplied(
        *this, {monitors, resources}, [this](const X11Connection::Replies &replies) {
            const QByteArray text = bytesIn(propertyIn(replies[1]));
            if (m_firstEvent >= 0) {
                readFacts(replies[0], text);
            } else {
                take({{{{}, {}, {}, u"screen"_s}, geometryIn(replies[0])}}, text);
            }
        });
}

void X11Monitors::readFacts(const X11AnyReply &reply, const QByteArray &resources) {
    std::vector<X11Monitor> monitors;
    std::vector<unsigned> requests;
    xcb_connection_t *xcb = connection().xcb();
    const auto all = monitorsIn(reply);
    for (std::size_t place = 0; place < all.size(); ++place) {
        const auto *monitor = all[place];
        if (geometryOf(*monitor).isEmpty() || isMirror(place, all)) {
            continue;
        }
        monitors.push_back({{}, geometryOf(*monitor)});
        const xcb_randr_output_t output = xcb_randr_monitor_info_outputs_length(monitor) > 0
                                              ? *xcb_randr_monitor_info_outputs(monitor)
                                              : xcb_randr_output_t{XCB_NONE};
        requests.push_back(xcb_get_atom_name(xcb, monitor->name).sequence);
        requests.push_back(xcb_randr_get_output_property(xcb, output,
                                                         connection().atom(X11Atom::edid),
                                                         XCB_ATOM_ANY, 0, kLongestEdid, 0, 0)
                               .sequence);
    }
    connection().whenReplied(
        *this, std::move(requests),
        [this, monitors, resources](const X11Connection::Replies &replies) mutable {
            for (std::size_t i = 0; i < monitors.size(); ++i) {
                const EdidWords words = edidIn(replies[kRepliesPerMonitor * i + 1]);
                monitors[i].facts = {words.manufacturer, words.model, words.serialNumber,
                                     atomNameIn(replies[kRepliesPerMonitor * i])};
            }
            take(std::move(monitors), resources);
        });
}

void X11Monitors::take(std::vector<X11Monitor> monitors, const QByteArray &resources) {
    m_isReading = false;
    const bool isChanged = monitors != m_monitors || resources != m_resources;
    m_monitors = std::move(monitors);
    m_resources = resources;
    if (std::exchange(m_readsAgain, false)) {
        read();
    }
    if (isChanged && m_handler) {
        m_handler();
    }
}

} // namespace zeph
