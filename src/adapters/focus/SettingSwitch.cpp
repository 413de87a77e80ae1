// SPDX-License-Identifier: MIT
#include "adapters/focus/SettingSwitch.h"

#include "base/Background.h"

#include <QByteArray>

#include <gio/gio.h>

// The header of the place where settings are kept is only for those who say so.
#define G_SETTINGS_ENABLE_BACKEND
#include <gio/gsettingsbackend.h>

#include <utility>

namespace zeph {

struct SettingSwitch::Schema {
    explicit Schema(GSettingsSchema *owned) : handle(owned) {}
    ~Schema() { g_settings_schema_unref(handle); }
    Schema(const Schema &) = delete;
    Schema &operator=(const Schema &) = delete;

    GSettingsSchema *handle;
};

struct SettingSwitch::Settings {
    explicit Settings(const Schema &schema)
        : handle(g_settings_new_full(schema.handle, nullptr, nullptr)) {}
    ~Settings() {
        g_object_unref(handle);
        if (bus != nullptr) {
            g_object_unref(bus);
        }
    }
    Settings(const Settings &) = delete;
    Settings &operator=(const Settings &) = delete;

    GSettings *handle;
    GDBusConnection *bus = nullptr; // the one that the library follows the settings on
};

namespace {

bool isBoolean(GSettingsSchema *schema, const char *key) {
    if (g_settings_schema_has_key(schema, key) == FALSE) {
        return false;
    }
    GSettingsSchemaKey *const description = g_settings_schema_get_key(schema, key);
    const bool isIt = g_variant_type_equal(g_settings_schema_key_get_value_type(description),
                                           G_VARIANT_TYPE_BOOLEAN) != FALSE;
    g_settings_schema_key_unref(description);
    return isIt;
}

} // namespace

SettingSwitch::SettingSwitch(QuietSetting setting, const Background &background,
                             std::function<void()> news)
    : m_setting(std::move(setting)), m_news(std::move(news)) {
    background.run(
        m_owner, [wanted = m_setting] { return prepare(wanted); },
        [this](const std::shared_ptr<Schema> &schema) {
            if (schema) {
                open(*schema);
            }
        });
}

SettingSwitch::~SettingSwitch() = default;

/// Everything slow, on any thread; null without such a setting. The library ends the process when
/// it is asked for a setting that is not installed, so that each part is looked up before.
std::shared_ptr<SettingSwitch::Schema> SettingSwitch::prepare(const QuietSetting &setting) {
    GSettingsSchemaSource *const source = g_settings_schema_source_get_default();
    GSettingsSchema *const found =
        source == nullptr
            ? nullptr
            : g_settings_schema_source_lookup(source, setting.schema.toUtf8().constData(), TRUE);
    if (found == nullptr) {
        return nullptr;
    }
    auto schema = std::make_shared<Schema>(found);
    if (g_settings_schema_get_path(found) == nullptr ||
        !isBoolean(found, setting.key.toUtf8().constData())) {
        return nullptr;
    }
    g_object_unref(g_settings_backend_get_default()); // it stays, ready for `open`
    return schema;
}

void SettingSwitch::open(const Schema &schema) {
    m_settings = std::make_shared<Settings>(schema);
    outliveBus(m_settings);
    m_news();
}

/// The library shares one connection to the session bus in the process, and has that end the
/// process when the bus ends. This one goes on.
void SettingSwitch::outliveBus(const std::weak_ptr<Settings> &settings) {
    const auto connected = [](GObject * /*source*/, GAsyncResult *result, gpointer data) {
        const std::unique_ptr<std::weak_ptr<Settings>> weakOwner(
            static_cast<std::weak_ptr<Settings> *>(data));
        GDBusConnection *const bus = g_bus_get_finish(result, nullptr);
        if (bus == nullptr) {
            return;
        }
        g_dbus_connection_set_exit_on_close(bus, FALSE);
        if (const auto owner = weakOwner->lock()) {
            owner->bus = bus; // kept, since a connection made anew would end the process again
        } else {
            g_object_unref(bus);
        }
    };
    g_bus_get(G_BUS_TYPE_SESSION, nullptr, connected,
              std::make_unique<std::weak_ptr<Settings>>(settings).release());
}

std::optional<bool> SettingSwitch::isQuiet() const {
    if (!m_settings) {
        return std::nullopt;
    }
    const bool value =
        g_settings_get_boolean(m_settings->handle, m_setting.key.toUtf8().constData()) != FALSE;
    return value == m_setting.quietValue;
}

} // namespace zeph
