// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11HeldPixmaps.h"

#include "adapters/session/x11/X11Connection.h"

#include <xcb/res.h>

#include <map>
#include <optional>
#include <utility>

namespace zeph {

namespace {

// Xlib, which all of these programs use, takes the first number for its graphics context.
constexpr std::uint32_t kFirstPixmapOfXlib = 1;

constexpr std::size_t kRepliesPerClient = 2;

/// A program that is still there has windows or graphics contexts besides.
bool hasOnePixmapOnly(const xcb_res_query_client_resources_reply_t *resources) {
    if (!resources || xcb_res_query_client_resources_types_length(resources) != 1) {
        return false;
    }
    const xcb_res_type_t *only = xcb_res_query_client_resources_types(resources);
    return only->resource_type == XCB_ATOM_PIXMAP && only->count == 1;
}

std::vector<xcb_pixmap_t> pixmapsToAskFor(const X11Connection &connection,
                                          const xcb_res_query_clients_reply_t *clients) {
    std::vector<xcb_pixmap_t> pixmaps;
    const int count = clients ? xcb_res_query_clients_clients_length(clients) : 0;
    for (int i = 0; i < count; ++i) {
        const std::uint32_t base = xcb_res_query_clients_clients(clients)[i].resource_base;
        if (!connection.isOwn(base)) {
            pixmaps.push_back(base | kFirstPixmapOfXlib);
        }
    }
    return pixmaps;
}

/// Asks for the processes that made these.
xcb_res_query_client_ids_cookie_t askForProcesses(const X11Connection &connection,
                                                  const std::vector<std::uint32_t> &resources) {
    std::vector<xcb_res_client_id_spec_t> questions;
    questions.reserve(resources.size());
    for (const std::uint32_t resource : resources) {
        questions.push_back({resource, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID});
    }
    return xcb_res_query_client_ids(connection.xcb(), static_cast<std::uint32_t>(questions.size()),
                                    questions.data());
}

/// The processes of this machine by their clients, which keep them when they end.
std::map<std::uint32_t, std::uint32_t> processesIn(const X11Connection &connection,
                                                   const xcb_res_query_client_ids_reply_t *reply) {
    std::map<std::uint32_t, std::uint32_t> processes;
    if (!reply) {
        return processes;
    }
    for (auto one = xcb_res_query_client_ids_ids_iterator(reply); one.rem > 0;
         xcb_res_client_id_value_next(&one)) {
        if (one.data->spec.mask == XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID &&
            xcb_res_client_id_value_value_length(one.data) == 1) {
            processes[connection.clientOf(one.data->spec.client)] =
                *xcb_res_client_id_value_value(one.data);
        }
    }
    return processes;
}

/// Tells whose pixmap is whose.
class Makers {
public:
    Makers(const X11Connection &connection, const xcb_res_query_client_ids_reply_t *reply)
        : m_connection(connection), m_processes(processesIn(connection, reply)) {}

    bool areTheSame(xcb_window_t window, xcb_pixmap_t pixmap) const {
        const auto one = processOf(window);
        return one && one == processOf(pixmap);
    }
    bool areDifferent(xcb_window_t window, xcb_pixmap_t pixmap) const {
        const auto one = processOf(window);
        const auto other = processOf(pixmap);
        return one && other && one != other;
    }

private:
    std::optional<std::uint32_t> processOf(std::uint32_t resource) const {
        const auto found = m_processes.find(m_connection.clientOf(resource));
        return found == m_processes.end() ? std::nullopt : std::optional(found->second);
    }

    const X11Connection &m_connection;
    std::map<std::uint32_t, std::uint32_t> m_processes;
};

void readForms(X11Connection &connection, X11EventListener &owner, xcb_window_t window,
               std::vector<xcb_pixmap_t> pixmaps,
               std::function<void(std::vector<PixmapForm>)> handler) {
    std::vector<unsigned> requests;
    requests.reserve(pixmaps.size() * kRepliesPerClient + 1);
    for (const xcb_pixmap_t pixmap : pixmaps) {
        requests.push_back(
            xcb_res_query_client_resources(connection.xcb(), connection.clientOf(pixmap)).sequence);
        requests.push_back(xcb_get_geometry(connection.xcb(), pixmap).sequence);
    }
    std::vector<std::uint32_t> asked = pixmaps;
    asked.push_back(window);
    requests.push_back(askForProcesses(connection, asked).sequence);
    connection.whenReplied(
        owner, std::move(requests),
        [&connection, window, pixmaps = std::move(pixmaps),
         handler = std::move(handler)](const X11Connection::Replies &replies) {
            const Makers makers(connection, static_cast<const xcb_res_query_client_ids_reply_t *>(
                                                replies.back().get()));
            std::vector<PixmapForm> held;
            for (std::size_t i = 0; i < pixmaps.size(); ++i) {
                const auto *resources = static_cast<const xcb_res_query_client_resources_reply_t *>(
                    replies[kRepliesPerClient * i].get());
                const auto *form = static_cast<const xcb_get_geometry_reply_t *>(
                    replies[kRepliesPerClient * i + 1].get());
                if (form && hasOnePixmapOnly(resources) && makers.areTheSame(window, pixmaps[i])) {
                    held.push_back({pixmaps[i], {form->width, form->height}, form->depth});
                }
            }
            handler(std::move(held));
        });
}

} // namespace

void findHeldPixmaps(X11Connection &connection, X11EventListener &owner, xcb_window_t window,
                     std::function<void(std::vector<PixmapForm>)> handler) {
    if (!connection.extension(X11Extension::resources)) {
        handler({});
        return;
    }
    connection.whenReplied(
        owner, {xcb_res_query_clients(connection.xcb()).sequence},
        [&connection, &owner, window,
         handler = std::move(handler)](const X11Connection::Replies &replies) mutable {
            readForms(connection, owner, window,
                      pixmapsToAskFor(
                          connection,
                          static_cast<const xcb_res_query_clients_reply_t *>(replies[0].get())),
                      std::move(handler));
        });
}

void askForMaker(X11Connection &connection, X11EventListener &owner, xcb_window_t window,
                 xcb_pixmap_t pixmap, std::function<void(bool isAnothers)> handler) {
    if (!connection.extension(X11Extension::resources)) {
        handler(false);
        return;
    }
    connection.whenReplied(
        owner, {askForProcesses(connection, {window, pixmap}).sequence},
        [&connection, window, pixmap,
         handler = std::move(handler)](const X11Connection::Replies &replies) {
            const Makers makers(connection, static_cast<const xcb_res_query_client_ids_reply_t *>(
                                                replies[0].get()));
            handler(makers.areDifferent(window, pixmap));
        });
}

bool isHeldPixmap(X11Connection &connection, xcb_window_t window, xcb_pixmap_t pixmap) {
    if (!connection.extension(X11Extension::resources)) {
        return false;
    }
    xcb_connection_t *xcb = connection.xcb();
    const auto question = xcb_res_query_client_resources(xcb, connection.clientOf(pixmap));
    const auto processes = askForProcesses(connection, {window, pixmap});
    const X11Reply<xcb_res_query_client_resources_reply_t> resources(
        xcb_res_query_client_resources_reply(xcb, question, nullptr));
    const X11Reply<xcb_res_query_client_ids_reply_t> ids(
        xcb_res_query_client_ids_reply(xcb, processes, nullptr));
    return hasOnePixmapOnly(resources.get()) &&
           Makers(connection, ids.get()).areTheSame(window, pixmap);
}

} // namespace zeph
