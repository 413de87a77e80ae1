// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11HeldPixmaps.h"

#include "adapters/session/x11/X11Connection.h"

#include <xcb/res.h>

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

void readForms(X11Connection &connection, X11EventListener &owner,
               std::vector<xcb_pixmap_t> pixmaps,
               std::function<void(std::vector<PixmapForm>)> handler) {
    std::vector<unsigned> requests;
    requests.reserve(pixmaps.size() * kRepliesPerClient);
    for (const xcb_pixmap_t pixmap : pixmaps) {
        requests.push_back(
            xcb_res_query_client_resources(connection.xcb(), connection.clientOf(pixmap)).sequence);
        requests.push_back(xcb_get_geometry(connection.xcb(), pixmap).sequence);
    }
    connection.whenReplied(
        owner, std::move(requests),
        [pixmaps = std::move(pixmaps),
         handler = std::move(handler)](const X11Connection::Replies &replies) {
            std::vector<PixmapForm> held;
            for (std::size_t i = 0; i < pixmaps.size(); ++i) {
                const auto *resources = static_cast<const xcb_res_query_client_resources_reply_t *>(
                    replies[kRepliesPerClient * i].get());
                const auto *form = static_cast<const xcb_get_geometry_reply_t *>(
                    replies[kRepliesPerClient * i + 1].get());
                if (form && hasOnePixmapOnly(resources)) {
                    held.push_back({pixmaps[i], {form->width, form->height}, form->depth});
                }
            }
            handler(std::move(held));
        });
}

} // namespace

void findHeldPixmaps(X11Connection &connection, X11EventListener &owner,
                     std::function<void(std::vector<PixmapForm>)> handler) {
    if (!connection.extension(X11Extension::resources)) {
        handler({});
        return;
    }
    connection.whenReplied(
        owner, {xcb_res_query_clients(connection.xcb()).sequence},
        [&connection, &owner,
         handler = std::move(handler)](const X11Connection::Replies &replies) mutable {
            readForms(connection, owner,
                      pixmapsToAskFor(
                          connection,
                          static_cast<const xcb_res_query_clients_reply_t *>(replies[0].get())),
                      std::move(handler));
        });
}

bool isHeldPixmap(X11Connection &connection, xcb_pixmap_t pixmap) {
    if (!connection.extension(X11Extension::resources)) {
        return false;
    }
    xcb_connection_t *xcb = connection.xcb();
    const X11Reply<xcb_res_query_client_resources_reply_t> resources(
        xcb_res_query_client_resources_reply(
            xcb, xcb_res_query_client_resources(xcb, connection.clientOf(pixmap)), nullptr));
    return hasOnePixmapOnly(resources.get());
}

} // namespace zeph
