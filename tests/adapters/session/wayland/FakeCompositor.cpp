// SPDX-License-Identifier: MIT
#include "FakeCompositor.h"

#include "kde-output-order-server-protocol.h"
#include "viewporter-server-protocol.h"
#include "wlr-layer-shell-unstable-v1-server-protocol.h"
#include "xdg-output-unstable-v1-server-protocol.h"

#include <wayland-server.h>

#include <QRegion>

#include <algorithm>
#include <map>
#include <set>
#include <utility>

namespace zeph {

namespace {

struct Surface;

struct Output {
    FakeOutput facts;
    wl_global *global = nullptr;
    std::vector<wl_resource *> handles;
    std::vector<wl_resource *> exact;
};

/// What a client has set for the next commit, and what is committed.
struct Content {
    wl_resource *buffer = nullptr;
    bool isAttached = false;
    int scale = 1;
    std::optional<QSize> destination;
    QRegion damage;         // in pixels
    bool isDamaged = false; // all of it
    bool takesInput = true;
};

struct Compositor;

struct Surface {
    Compositor *compositor = nullptr;
    wl_resource *handle = nullptr;
    wl_resource *role = nullptr;
    Content next;
    Content now;
    FakeLayerState state;
    bool isNew = true;
    bool isAcknowledged = false;
};

template <typename Object>
Object &dataOf(wl_resource *resource) {
    return *static_cast<Object *>(wl_resource_get_user_data(resource));
}

void destroy(wl_client * /*client*/, wl_resource *resource) {
    wl_resource_destroy(resource);
}

} // namespace

namespace {

/// All that lives in the compositor's thread.
struct Compositor {
    FakeCompositor::Options options;
    wl_display *display = nullptr;
    std::vector<std::unique_ptr<Output>> outputs;
    std::vector<std::unique_ptr<Surface>> surfaces;
    std::set<wl_resource *> buffers;
    std::vector<wl_resource *> held;
    std::vector<QByteArray> order;
    std::vector<wl_resource *> orderListeners;
    std::uint32_t serial = 100;
    int madeLayers = 0;

    Surface *newestLayer() const {
        for (auto it = surfaces.rbegin(); it != surfaces.rend(); ++it) {
            if ((*it)->role) {
                return it->get();
            }
        }
        return nullptr;
    }
    Output *output(const QByteArray &name) const {
        const auto found = std::find_if(outputs.begin(), outputs.end(), [&](const auto &output) {
            return output->facts.name == name;
        });
        return found == outputs.end() ? nullptr : found->get();
    }
    void configure(Surface &surface, QSize size) {
        surface.state.sent.push_back(++serial);
        zwlr_layer_surface_v1_send_configure(surface.role, serial,
                                             static_cast<std::uint32_t>(size.width()),
                                             static_cast<std::uint32_t>(size.height()));
    }
    void release(wl_resource *buffer) {
        if (std::erase(held, buffer) > 0) {
            wl_buffer_send_release(buffer);
        }
    }
};

struct BufferEnd {
    wl_listener listener{};
    Compositor *compositor = nullptr;
    wl_resource *buffer = nullptr;
};

void followEnd(Compositor &compositor, wl_resource *buffer) {
    if (!compositor.buffers.insert(buffer).second) {
        return;
    }
    auto *end = new BufferEnd;
    end->compositor = &compositor;
    end->buffer = buffer;
    end->listener.notify = [](wl_listener *listener, void * /*data*/) {
        auto *ended = reinterpret_cast<BufferEnd *>(listener); // its first member
        ended->compositor->buffers.erase(ended->buffer);
        std::erase(ended->compositor->held, ended->buffer);
        for (const auto &surface : ended->compositor->surfaces) {
            for (Content *content : {&surface->now, &surface->next}) {
                if (content->buffer == ended->buffer) {
                    content->buffer = nullptr;
                }
            }
        }
        delete ended;
    };
    wl_resource_add_destroy_listener(buffer, &end->listener);
}

QImage pixelsIn(wl_resource *buffer) {
    wl_shm_buffer *pixels = wl_shm_buffer_get(buffer);
    wl_shm_buffer_begin_access(pixels);
    const QImage image(static_cast<const uchar *>(wl_shm_buffer_get_data(pixels)),
                       wl_shm_buffer_get_width(pixels), wl_shm_buffer_get_height(pixels),
                       wl_shm_buffer_get_stride(pixels),
                       wl_shm_buffer_get_format(pixels) == WL_SHM_FORMAT_XRGB8888
                           ? QImage::Format_RGB32
                           : QImage::Format_ARGB32_Premultiplied);
    QImage copy = image.copy();
    wl_shm_buffer_end_access(pixels);
    return copy;
}

/// Puts what is damaged on the display.
void display(Surface &surface, const Content &content) {
    const QImage pixels = pixelsIn(content.buffer);
    QImage &shown = surface.state.shown;
    if (pixels.size() != shown.size() || pixels.format() != shown.format()) {
        shown = QImage(pixels.size(), pixels.format());
        shown.fill(Qt::magenta); // where a client told no damage
    }
    const QRegion damage = content.isDamaged ? QRegion(pixels.rect()) : content.damage;
    for (const QRect &rect : damage &pixels.rect()) {
        for (int y = rect.top(); y <= rect.bottom(); ++y) {
            for (int x = rect.left(); x <= rect.right(); ++x) {
                shown.setPixel(x, y, pixels.pixel(x, y));
            }
        }
    }
}

void takeBuffer(Surface &surface) {
    Compositor &compositor = *surface.compositor;
    wl_resource *buffer = surface.next.buffer;
    wl_resource *before = surface.now.buffer;
    ++surface.state.attaches;
    surface.state.format = wl_shm_buffer_get_format(wl_shm_buffer_get(buffer));
    display(surface, surface.next);
    followEnd(compositor, buffer);
    std::erase(compositor.held, buffer);
    compositor.held.push_back(buffer);
    if (compositor.options.release == FakeCompositor::Release::atOnce) {
        compositor.release(buffer);
    } else if (compositor.options.release == FakeCompositor::Release::whenReplaced && before &&
               before != buffer) {
        compositor.release(before);
    }
    surface.now.buffer = buffer;
}

/// What real compositors end a connection for; null when all is well.
const char *faultIn(const Surface &surface) {
    if (surface.next.isAttached && !surface.isAcknowledged) {
        return "pixels before the size was acknowledged";
    }
    wl_resource *buffer = surface.next.isAttached ? surface.next.buffer : surface.now.buffer;
    if (!buffer) {
        return nullptr;
    }
    wl_shm_buffer *pixels = wl_shm_buffer_get(buffer);
    const int scale = surface.next.scale;
    return wl_shm_buffer_get_width(pixels) % scale != 0 ||
                   wl_shm_buffer_get_height(pixels) % scale != 0
               ? "the scale does not divide the pixels"
               : nullptr;
}

void commit(wl_client * /*client*/, wl_resource *resource) {
    auto &surface = dataOf<Surface>(resource);
    ++surface.state.commits;
    if (const char *fault = faultIn(surface)) {
        wl_resource_post_error(resource, 2, "%s", fault);
        return;
    }
    if (surface.next.isAttached && surface.next.buffer) {
        takeBuffer(surface);
    } else if (surface.next.isAttached) {
        surface.state.shown = {};
    }
    surface.state.scale = surface.next.scale;
    surface.state.destination = surface.next.destination;
    surface.state.takesInput = surface.next.takesInput;
    surface.next.isAttached = false;
    surface.next.damage = {};
    surface.next.isDamaged = false;
    if (surface.role && std::exchange(surface.isNew, false) &&
        surface.compositor->options.configuresByItself) {
        const Output *output = surface.compositor->output(surface.state.output);
        surface.compositor->configure(surface, output ? output->facts.points : QSize());
    }
}

void attach(wl_client * /*client*/, wl_resource *resource, wl_resource *buffer, std::int32_t /*x*/,
            std::int32_t /*y*/) {
    dataOf<Surface>(resource).next.buffer = buffer;
    dataOf<Surface>(resource).next.isAttached = true;
}

void damageAll(wl_client * /*client*/, wl_resource *resource, std::int32_t /*x*/,
               std::int32_t /*y*/, std::int32_t /*width*/, std::int32_t /*height*/) {
    dataOf<Surface>(resource).next.isDamaged = true;
}

void damagePixels(wl_client * /*client*/, wl_resource *resource, std::int32_t x, std::int32_t y,
                  std::int32_t width, std::int32_t height) {
    dataOf<Surface>(resource).next.damage += QRect(x, y, width, height);
}

// A client of ours sets an empty one only.
void setInputRegion(wl_client * /*client*/, wl_resource *resource, wl_resource *region) {
    dataOf<Surface>(resource).next.takesInput =
        !region || wl_resource_get_user_data(region) != nullptr;
}

const struct wl_surface_interface surfaceRequests = {
    destroy,
    attach,
    damageAll,
    [](wl_client *, wl_resource *, std::uint32_t) {},
    [](wl_client *, wl_resource *, wl_resource *) {},
    setInputRegion,
    commit,
    [](wl_client *, wl_resource *, std::int32_t) {},
    [](wl_client *, wl_resource *resource, std::int32_t scale) {
        dataOf<Surface>(resource).next.scale = scale;
    },
    damagePixels,
    [](wl_client *, wl_resource *, std::int32_t, std::int32_t) {}};

// A region's data is null as long as nothing was added.
const struct wl_region_interface regionRequests = {
    destroy,
    [](wl_client *, wl_resource *region, std::int32_t, std::int32_t, std::int32_t, std::int32_t) {
        wl_resource_set_user_data(region, region);
    },
    [](wl_client *, wl_resource *, std::int32_t, std::int32_t, std::int32_t, std::int32_t) {}};

void createSurface(wl_client *client, wl_resource *resource, std::uint32_t id) {
    auto &compositor = dataOf<Compositor>(resource);
    auto surface = std::make_unique<Surface>();
    surface->compositor = &compositor;
    surface->handle =
        wl_resource_create(client, &wl_surface_interface, wl_resource_get_version(resource), id);
    wl_resource_set_implementation(
        surface->handle, &surfaceRequests, surface.get(), [](wl_resource *ended) {
            auto &gone = dataOf<Surface>(ended);
            Compositor &left = *gone.compositor;
            if (gone.now.buffer && left.options.release != FakeCompositor::Release::never) {
                left.release(gone.now.buffer);
            }
            if (gone.role) {
                wl_resource_set_user_data(gone.role, nullptr);
            }
            std::erase_if(left.surfaces,
                          [&gone](const auto &known) { return known.get() == &gone; });
        });
    compositor.surfaces.push_back(std::move(surface));
}

const struct wl_compositor_interface compositorRequests = {
    createSurface, [](wl_client *client, wl_resource *resource, std::uint32_t id) {
        wl_resource *region =
            wl_resource_create(client, &wl_region_interface, wl_resource_get_version(resource), id);
        wl_resource_set_implementation(region, &regionRequests, nullptr, nullptr);
    }};

void acknowledge(wl_client * /*client*/, wl_resource *resource, std::uint32_t serial) {
    auto &surface = dataOf<Surface>(resource);
    const auto &sent = surface.state.sent;
    const auto &done = surface.state.acknowledged;
    const bool isKnown = std::find(sent.begin(), sent.end(), serial) != sent.end();
    if (!isKnown || (!done.empty() && done.back() >= serial)) {
        wl_resource_post_error(resource, 0, "wrong configure serial: %u", serial);
        return;
    }
    surface.state.acknowledged.push_back(serial);
    surface.isAcknowledged = true;
}

const struct zwlr_layer_surface_v1_interface layerRequests = {
    [](wl_client *, wl_resource *, std::uint32_t, std::uint32_t) {},
    [](wl_client *, wl_resource *resource, std::uint32_t anchor) {
        dataOf<Surface>(resource).state.anchor = anchor;
    },
    [](wl_client *, wl_resource *resource, std::int32_t zone) {
        dataOf<Surface>(resource).state.exclusiveZone = zone;
    },
    [](wl_client *, wl_resource *, std::int32_t, std::int32_t, std::int32_t, std::int32_t) {},
    [](wl_client *, wl_resource *resource, std::uint32_t interactivity) {
        dataOf<Surface>(resource).state.keyboard = interactivity;
    },
    [](wl_client *, wl_resource *, wl_resource *) {},
    acknowledge,
    destroy,
    [](wl_client *, wl_resource *, std::uint32_t) {}};

void getLayerSurface(wl_client *client, wl_resource *resource, std::uint32_t id,
                     wl_resource *surfaceHandle, wl_resource *output, std::uint32_t layer,
                     const char *scope) {
    auto &surface = dataOf<Surface>(surfaceHandle);
    surface.role = wl_resource_create(client, &zwlr_layer_surface_v1_interface,
                                      wl_resource_get_version(resource), id);
    wl_resource_set_implementation(surface.role, &layerRequests, &surface, [](wl_resource *ended) {
        if (auto *left = static_cast<Surface *>(wl_resource_get_user_data(ended))) {
            left->role = nullptr;
        }
    });
    surface.state.number = ++surface.compositor->madeLayers;
    surface.state.layer = layer;
    surface.state.scope = scope;
    if (output && wl_resource_get_user_data(output)) {
        surface.state.output = dataOf<Output>(output).facts.name;
    }
}

const struct zwlr_layer_shell_v1_interface shellRequests = {getLayerSurface, destroy};

const struct wp_viewport_interface viewportRequests = {
    [](wl_client *, wl_resource *resource) { wl_resource_destroy(resource); },
    [](wl_client *, wl_resource *, wl_fixed_t, wl_fixed_t, wl_fixed_t, wl_fixed_t) {},
    [](wl_client *, wl_resource *resource, std::int32_t width, std::int32_t height) {
        dataOf<Surface>(resource).next.destination =
            width < 0 ? std::nullopt : std::optional(QSize(width, height));
    }};

const struct wp_viewporter_interface viewporterRequests = {
    destroy, [](wl_client *client, wl_resource *resource, std::uint32_t id, wl_resource *surface) {
        wl_resource *viewport = wl_resource_create(client, &wp_viewport_interface,
                                                   wl_resource_get_version(resource), id);
        wl_resource_set_implementation(viewport, &viewportRequests,
                                       wl_resource_get_user_data(surface), nullptr);
    }};

void tellExact(wl_resource *exact, const FakeOutput &facts) {
    zxdg_output_v1_send_logical_position(exact, facts.position.x(), facts.position.y());
    zxdg_output_v1_send_logical_size(exact, facts.points.width(), facts.points.height());
    if (wl_resource_get_version(exact) >= ZXDG_OUTPUT_V1_NAME_SINCE_VERSION) {
        zxdg_output_v1_send_name(exact, facts.name.constData());
        zxdg_output_v1_send_description(exact, facts.description.constData());
    }
    if (wl_resource_get_version(exact) < 3) {
        zxdg_output_v1_send_done(exact);
    }
}

void tellDone(wl_resource *handle) {
    if (wl_resource_get_version(handle) >= WL_OUTPUT_DONE_SINCE_VERSION) {
        wl_output_send_done(handle);
    }
}

void tellOutput(wl_resource *handle, const FakeOutput &facts) {
    const int version = wl_resource_get_version(handle);
    wl_output_send_geometry(handle, facts.position.x(), facts.position.y(), 0, 0, 0,
                            facts.make.constData(), facts.model.constData(), facts.transform);
    if (!facts.mode.isNull()) {
        wl_output_send_mode(handle, 0, 640, 480, 60000); // one that it could have
        wl_output_send_mode(handle, WL_OUTPUT_MODE_CURRENT, facts.mode.width(), facts.mode.height(),
                            60000);
    }
    if (version >= WL_OUTPUT_SCALE_SINCE_VERSION) {
        wl_output_send_scale(handle, facts.scale);
    }
    if (version >= WL_OUTPUT_NAME_SINCE_VERSION) {
        wl_output_send_name(handle, facts.name.constData());
        wl_output_send_description(handle, facts.description.constData());
    }
}

void tellOrder(const Compositor &compositor, wl_resource *listener) {
    for (const QByteArray &name : compositor.order) {
        kde_output_order_v1_send_output(listener, name.constData());
    }
    kde_output_order_v1_send_done(listener);
}

const struct kde_output_order_v1_interface orderRequests = {destroy};

void bindOrder(wl_client *client, void *data, std::uint32_t version, std::uint32_t id) {
    auto &compositor = *static_cast<Compositor *>(data);
    wl_resource *listener =
        wl_resource_create(client, &kde_output_order_v1_interface, static_cast<int>(version), id);
    wl_resource_set_implementation(listener, &orderRequests, data, [](wl_resource *ended) {
        std::erase(dataOf<Compositor>(ended).orderListeners, ended);
    });
    compositor.orderListeners.push_back(listener);
    tellOrder(compositor, listener);
}

const struct wl_output_interface outputRequests = {destroy};
const struct zxdg_output_v1_interface exactRequests = {destroy};

void getExact(wl_client *client, wl_resource *resource, std::uint32_t id, wl_resource *handle) {
    wl_resource *exact = wl_resource_create(client, &zxdg_output_v1_interface,
                                            wl_resource_get_version(resource), id);
    auto *output = static_cast<Output *>(wl_resource_get_user_data(handle));
    wl_resource_set_implementation(exact, &exactRequests, output, [](wl_resource *ended) {
        if (auto *left = static_cast<Output *>(wl_resource_get_user_data(ended))) {
            std::erase(left->exact, ended);
        }
    });
    if (output) {
        output->exact.push_back(exact);
        tellExact(exact, output->facts);
        tellDone(handle);
    }
}

const struct zxdg_output_manager_v1_interface exactnessRequests = {destroy, getExact};

void bindOutput(wl_client *client, void *data, std::uint32_t version, std::uint32_t id) {
    auto *output = static_cast<Output *>(data);
    wl_resource *handle =
        wl_resource_create(client, &wl_output_interface, static_cast<int>(version), id);
    wl_resource_set_implementation(handle, &outputRequests, output, [](wl_resource *ended) {
        if (auto *left = static_cast<Output *>(wl_resource_get_user_data(ended))) {
            std::erase(left->handles, ended);
        }
    });
    output->handles.push_back(handle);
    tellOutput(handle, output->facts);
    tellDone(handle);
}

/// Offers an interface whose objects are implemented by `requests` over the compositor.
template <const wl_interface &interface, const auto &requests>
void offer(Compositor &compositor, std::uint32_t version) {
    wl_global_create(compositor.display, &interface, static_cast<int>(version), &compositor,
                     [](wl_client *client, void *data, std::uint32_t bound, std::uint32_t id) {
                         wl_resource *resource =
                             wl_resource_create(client, &interface, static_cast<int>(bound), id);
                         wl_resource_set_implementation(resource, &requests, data, nullptr);
                     });
}

void plug(Compositor &compositor, const FakeOutput &facts) {
    auto output = std::make_unique<Output>();
    output->facts = facts;
    output->global = wl_global_create(compositor.display, &wl_output_interface,
                                      static_cast<int>(compositor.options.outputVersion),
                                      output.get(), bindOutput);
    compositor.outputs.push_back(std::move(output));
}

void unplug(Compositor &compositor, const QByteArray &name, bool quietly) {
    Output *output = compositor.output(name);
    for (const auto &surface : compositor.surfaces) {
        if (surface->role && surface->state.output == name && !quietly) {
            zwlr_layer_surface_v1_send_closed(surface->role);
        }
    }
    for (const auto &resources : {output->handles, output->exact}) {
        for (wl_resource *resource : resources) {
            wl_resource_set_user_data(resource, nullptr);
        }
    }
    wl_global_destroy(output->global);
    std::erase_if(compositor.outputs,
                  [output](const auto &known) { return known.get() == output; });
}

} // namespace

struct FakeCompositor::State {
    Compositor compositor;
};

FakeCompositor::FakeCompositor(const Options &options) : m_state(std::make_unique<State>()) {
    m_thread.run([this, options](wl_display *display) {
        Compositor &compositor = m_state->compositor;
        compositor.options = options;
        compositor.display = display;
        wl_display_init_shm(display);
        if (options.compositorVersion > 0) {
            offer<wl_compositor_interface, compositorRequests>(compositor,
                                                               options.compositorVersion);
        }
        for (const FakeOutput &output : options.outputs) {
            plug(compositor, output);
        }
        if (options.exactVersion > 0) {
            offer<zxdg_output_manager_v1_interface, exactnessRequests>(compositor,
                                                                       options.exactVersion);
        }
        if (options.shellVersion > 0) {
            offer<zwlr_layer_shell_v1_interface, shellRequests>(compositor, options.shellVersion);
        }
        if (options.hasOrder) {
            wl_global_create(display, &kde_output_order_v1_interface, 1, &compositor, bindOrder);
        }
        if (options.hasViewporter) {
            offer<wp_viewporter_interface, viewporterRequests>(compositor, 1);
        }
    });
}

FakeCompositor::~FakeCompositor() {
    m_thread.end();
}

std::vector<FakeLayerState> FakeCompositor::layers() {
    std::vector<FakeLayerState> states;
    m_thread.run([&](wl_display * /*display*/) {
        for (const auto &surface : m_state->compositor.surfaces) {
            if (surface->role) {
                states.push_back(surface->state);
                states.back().shown.detach();
            }
        }
    });
    return states;
}

int FakeCompositor::liveBuffers() {
    std::size_t count = 0;
    m_thread.run([&](wl_display * /*display*/) { count = m_state->compositor.buffers.size(); });
    return static_cast<int>(count);
}

void FakeCompositor::addOutput(const FakeOutput &output) {
    m_thread.run([&](wl_display * /*display*/) { plug(m_state->compositor, output); });
}

void FakeCompositor::removeOutput(const QByteArray &name, bool quietly) {
    m_thread.run([&](wl_display * /*display*/) { unplug(m_state->compositor, name, quietly); });
}

void FakeCompositor::changeOutput(const FakeOutput &changed) {
    m_thread.run([&](wl_display * /*display*/) {
        Output *output = m_state->compositor.output(changed.name);
        output->facts = changed;
        for (wl_resource *handle : output->handles) {
            tellOutput(handle, changed);
        }
        for (wl_resource *exact : output->exact) {
            tellExact(exact, changed);
        }
        for (wl_resource *handle : output->handles) {
            tellDone(handle);
        }
    });
}

void FakeCompositor::order(const std::vector<QByteArray> &names) {
    m_thread.run([&](wl_display * /*display*/) {
        m_state->compositor.order = names;
        for (wl_resource *listener : m_state->compositor.orderListeners) {
            tellOrder(m_state->compositor, listener);
        }
    });
}

void FakeCompositor::configure(QSize size, int times) {
    m_thread.run([&](wl_display * /*display*/) {
        Surface *surface = m_state->compositor.newestLayer();
        for (int i = 0; surface && i < times; ++i) {
            m_state->compositor.configure(*surface, size);
        }
    });
}

void FakeCompositor::close() {
    m_thread.run([&](wl_display * /*display*/) {
        if (Surface *surface = m_state->compositor.newestLayer()) {
            zwlr_layer_surface_v1_send_closed(surface->role);
        }
    });
}

void FakeCompositor::releaseBuffers() {
    m_thread.run([&](wl_display * /*display*/) {
        const auto held = m_state->compositor.held;
        for (wl_resource *buffer : held) {
            m_state->compositor.release(buffer);
        }
    });
}

void FakeCompositor::complain() {
    m_thread.run([&](wl_display * /*display*/) {
        if (Surface *surface = m_state->compositor.newestLayer()) {
            wl_resource_post_error(surface->role, 1, "as the test wants it");
        }
    });
}

} // namespace zeph
