// SPDX-License-Identifier: MIT
#include "adapters/gio/GioLibrary.h"

#include <dlfcn.h>

#include <memory>
#include <utility>

namespace zeph {

namespace {

/// Finds functions in a library and in those that it needs.
class Functions {
public:
    explicit Functions(const char *library)
        // It registers types that can't be taken back, so it is never unloaded.
        : m_library(::dlopen(library, RTLD_NOW | RTLD_NODELETE)) {}

    template <typename Function>
    void find(const char *name, Function &function) {
        void *const found = m_library == nullptr ? nullptr : ::dlsym(m_library, name);
        m_areAllThere = m_areAllThere && found != nullptr;
        function = reinterpret_cast<Function>(found);
    }

    bool areAllThere() const { return m_areAllThere; }

private:
    void *m_library;
    bool m_areAllThere = true;
};

void findFiles(Functions &functions, GioLibrary &gio) {
    functions.find("g_vfs_get_local", gio.vfsGetLocal);
    functions.find("g_vfs_get_file_for_path", gio.vfsGetFileForPath);
    functions.find("g_file_peek_path", gio.filePeekPath);
    functions.find("g_file_monitor_directory", gio.fileMonitorDirectory);
    functions.find("g_file_monitor_cancel", gio.fileMonitorCancel);
}

void findSettings(Functions &functions, GioLibrary &gio) {
    functions.find("g_settings_schema_source_get_default", gio.schemaSourceGetDefault);
    functions.find("g_settings_schema_source_lookup", gio.schemaSourceLookup);
    functions.find("g_settings_schema_unref", gio.schemaUnref);
    functions.find("g_settings_schema_get_path", gio.schemaGetPath);
    functions.find("g_settings_schema_has_key", gio.schemaHasKey);
    functions.find("g_settings_schema_get_key", gio.schemaGetKey);
    functions.find("g_settings_schema_key_get_value_type", gio.schemaKeyGetValueType);
    functions.find("g_settings_schema_key_unref", gio.schemaKeyUnref);
    functions.find("g_settings_backend_get_default", gio.settingsBackendGetDefault);
    functions.find("g_settings_new_full", gio.settingsNewFull);
    functions.find("g_settings_get_boolean", gio.settingsGetBoolean);
}

void findObjects(Functions &functions, GioLibrary &gio) {
    functions.find("g_bus_get", gio.busGet);
    functions.find("g_bus_get_finish", gio.busGetFinish);
    functions.find("g_dbus_connection_set_exit_on_close", gio.connectionSetExitOnClose);
    functions.find("g_object_unref", gio.objectUnref);
    functions.find("g_signal_connect_data", gio.signalConnectData);
}

} // namespace

const GioLibrary *GioLibrary::loaded() {
    // Never freed: at an end that the toolkit decides upon, threads may still be about to call it.
    static const GioLibrary *const library = loadedFrom("libgio-2.0.so.0").release();
    return library;
}

std::unique_ptr<const GioLibrary> GioLibrary::loadedFrom(const char *name) {
    auto gio = std::make_unique<GioLibrary>();
    Functions functions(name);
    findFiles(functions, *gio);
    findSettings(functions, *gio);
    findObjects(functions, *gio);
    return functions.areAllThere() ? std::move(gio) : nullptr;
}

} // namespace zeph
