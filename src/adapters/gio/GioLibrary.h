// SPDX-License-Identifier: MIT
#pragma once

#include <gio/gio.h>

// The header of the place where settings are kept is only for those who say so.
#define G_SETTINGS_ENABLE_BACKEND
#include <gio/gsettingsbackend.h>

#include <memory>

namespace zeph {

/// The functions of GIO and of its objects that the adapters call. Linked, the library and those
/// behind it would take two milliseconds of the start; nothing of it is needed before the first
/// frame.
struct GioLibrary {
    decltype(&::g_vfs_get_local) vfsGetLocal;
    decltype(&::g_vfs_get_file_for_path) vfsGetFileForPath;
    decltype(&::g_file_peek_path) filePeekPath;
    decltype(&::g_file_monitor_directory) fileMonitorDirectory;
    decltype(&::g_file_monitor_cancel) fileMonitorCancel;

    decltype(&::g_settings_schema_source_get_default) schemaSourceGetDefault;
    decltype(&::g_settings_schema_source_lookup) schemaSourceLookup;
    decltype(&::g_settings_schema_unref) schemaUnref;
    decltype(&::g_settings_schema_get_path) schemaGetPath;
    decltype(&::g_settings_schema_has_key) schemaHasKey;
    decltype(&::g_settings_schema_get_key) schemaGetKey;
    decltype(&::g_settings_schema_key_get_value_type) schemaKeyGetValueType;
    decltype(&::g_settings_schema_key_unref) schemaKeyUnref;
    decltype(&::g_settings_backend_get_default) settingsBackendGetDefault;
    decltype(&::g_settings_new_full) settingsNewFull;
    decltype(&::g_settings_get_boolean) settingsGetBoolean;

    decltype(&::g_bus_get) busGet;
    decltype(&::g_bus_get_finish) busGetFinish;
    decltype(&::g_dbus_connection_set_exit_on_close) connectionSetExitOnClose;

    decltype(&::g_object_unref) objectUnref;
    decltype(&::g_signal_connect_data) signalConnectData;

    /// The library, loaded by the first call, which takes some milliseconds, and kept; null where
    /// it is not installed or lacks one of these. Any thread.
    static const GioLibrary *loaded();

    /// The same, from the library file `name`, anew by each call.
    static std::unique_ptr<const GioLibrary> loadedFrom(const char *name);
};

} // namespace zeph
