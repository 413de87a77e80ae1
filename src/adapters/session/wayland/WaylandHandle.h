// SPDX-License-Identifier: MIT
#pragma once

#include "ext-idle-notify-v1-client-protocol.h"
#include "kde-output-order-client-protocol.h"
#include "kwin-idle-client-protocol.h"
#include "viewporter-client-protocol.h"
#include "wlr-foreign-toplevel-management-unstable-v1-client-protocol.h"
#include "wlr-layer-shell-unstable-v1-client-protocol.h"
#include "xdg-output-unstable-v1-client-protocol.h"

#include <wayland-client.h>

#include <memory>

namespace zeph {

/// Ends an object of the protocol on both sides, or on ours alone where its version has no request
/// for that.
struct WaylandRelease {
    void operator()(wl_buffer *object) const { wl_buffer_destroy(object); }
    void operator()(wl_callback *object) const { wl_callback_destroy(object); }
    void operator()(wl_compositor *object) const { wl_compositor_destroy(object); }
    void operator()(wl_region *object) const { wl_region_destroy(object); }
    void operator()(wl_registry *object) const { wl_registry_destroy(object); }
    void operator()(wl_shm *object) const { wl_shm_destroy(object); }
    void operator()(wl_shm_pool *object) const { wl_shm_pool_destroy(object); }
    void operator()(wl_surface *object) const { wl_surface_destroy(object); }
    void operator()(wp_viewport *object) const { wp_viewport_destroy(object); }
    void operator()(wp_viewporter *object) const { wp_viewporter_destroy(object); }
    void operator()(zxdg_output_v1 *object) const { zxdg_output_v1_destroy(object); }
    void operator()(zxdg_output_manager_v1 *object) const {
        zxdg_output_manager_v1_destroy(object);
    }
    void operator()(zwlr_layer_surface_v1 *object) const { zwlr_layer_surface_v1_destroy(object); }
    void operator()(ext_idle_notifier_v1 *object) const { ext_idle_notifier_v1_destroy(object); }
    void operator()(ext_idle_notification_v1 *object) const {
        ext_idle_notification_v1_destroy(object);
    }
    void operator()(kde_output_order_v1 *object) const { kde_output_order_v1_destroy(object); }
    void operator()(org_kde_kwin_idle *object) const { org_kde_kwin_idle_destroy(object); }
    void operator()(org_kde_kwin_idle_timeout *object) const {
        org_kde_kwin_idle_timeout_release(object);
    }
    void operator()(zwlr_foreign_toplevel_manager_v1 *object) const {
        zwlr_foreign_toplevel_manager_v1_destroy(object);
    }
    void operator()(zwlr_foreign_toplevel_handle_v1 *object) const {
        zwlr_foreign_toplevel_handle_v1_destroy(object);
    }
    void operator()(wl_seat *object) const {
        wl_seat_get_version(object) >= WL_SEAT_RELEASE_SINCE_VERSION ? wl_seat_release(object)
                                                                     : wl_seat_destroy(object);
    }
    void operator()(wl_output *object) const {
        wl_output_get_version(object) >= WL_OUTPUT_RELEASE_SINCE_VERSION
            ? wl_output_release(object)
            : wl_output_destroy(object);
    }
    void operator()(zwlr_layer_shell_v1 *object) const {
        if (zwlr_layer_shell_v1_get_version(object) >= ZWLR_LAYER_SHELL_V1_DESTROY_SINCE_VERSION) {
            zwlr_layer_shell_v1_destroy(object);
        } else {
            // The generated types are all this one to the library.
            wl_proxy_destroy(reinterpret_cast<wl_proxy *>(object));
        }
    }
};

/// An object of the protocol, ended with its holder.
template <typename Object>
using WaylandHandle = std::unique_ptr<Object, WaylandRelease>;

} // namespace zeph
