// SPDX-License-Identifier: MIT
#pragma once

#include <libecal/libecal.h>

#include <memory>

namespace zeph {

/// One deleter for everything that is owned by a C handle here.
struct GLibDelete {
    void operator()(GCancellable *object) const { g_object_unref(object); }
    void operator()(GDBusConnection *object) const { g_object_unref(object); }
    void operator()(ESourceRegistry *object) const { g_object_unref(object); }
    void operator()(ESource *object) const { g_object_unref(object); }
    void operator()(ECalClient *object) const { g_object_unref(object); }
    void operator()(ECalClientView *object) const { g_object_unref(object); }
    void operator()(ICalComponent *object) const { g_object_unref(object); }
    void operator()(ICalProperty *object) const { g_object_unref(object); }
    void operator()(ICalParameter *object) const { g_object_unref(object); }
    void operator()(ICalRecurrence *object) const { g_object_unref(object); }
    void operator()(ICalDuration *object) const { g_object_unref(object); }
    void operator()(ICalTime *object) const { g_object_unref(object); }
    void operator()(ICalTimezone *object) const { g_object_unref(object); }
    void operator()(GMainContext *context) const { g_main_context_unref(context); }
    void operator()(GMainLoop *loop) const { g_main_loop_unref(loop); }
    void operator()(GError *error) const { g_error_free(error); }
    void operator()(GSource *source) const {
        g_source_destroy(source);
        g_source_unref(source);
    }
    void operator()(char *text) const { g_free(text); }
};

template <typename T>
using GLibPtr = std::unique_ptr<T, GLibDelete>;

/// Another reference to an object that somebody else owns.
template <typename T>
GLibPtr<T> shareGLib(T *object) {
    g_object_ref(object);
    return GLibPtr<T>(object);
}

} // namespace zeph
