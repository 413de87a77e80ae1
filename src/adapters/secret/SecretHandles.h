// SPDX-License-Identifier: MIT
#pragma once

#include <libsecret/secret.h>

#include <memory>

namespace zeph {

/// One deleter for everything that is owned by a C handle here.
struct SecretDelete {
    template <typename Object>
    void operator()(Object *object) const {
        g_object_unref(object);
    }
    void operator()(GMainContext *context) const { g_main_context_unref(context); }
    void operator()(GError *error) const { g_error_free(error); }
    void operator()(GHashTable *table) const { g_hash_table_unref(table); }
    void operator()(SecretValue *value) const { secret_value_unref(value); }
    void operator()(GSource *source) const {
        g_source_destroy(source);
        g_source_unref(source);
    }
};

template <typename T>
using SecretPtr = std::unique_ptr<T, SecretDelete>;

/// Frees a list of objects with the objects.
struct ObjectListDelete {
    void operator()(GList *list) const { g_list_free_full(list, g_object_unref); }
};
using ObjectList = std::unique_ptr<GList, ObjectListDelete>;

} // namespace zeph
