// SPDX-License-Identifier: MIT
#include "adapters/focus/SettingSwitch.h"

#include "adapters/gio/GioLibrary.h"
#include "base/Background.h"

#include <QByteArray>

#include <utility>

namespace zeph {

struct SettingSwitch::Schema {
    Schema(const GioLibrary &library, GSettingsSchema *owned) : gio(library), handle(owned) {}
    ~Schema() { gio.schemaUnref(handle); }
    Schema(const Schema &) = delete;
    Schema &operator=(const Schema &) = delete;

    const GioLibrary &gio;
    GSettingsSchema *handle;
};

struct SettingSwitch::Settings {
    explicit Settings(const Schema &schema)
        : gio(schema.gio), handle(gio.settingsNewFull(schema.handle, nullptr, nullptr)) {}
    ~Settings() {
        gio.objectUnref(handle);
        if (bus != nullptr) {
            gio.objectUnref(bus);
        }
    }
    Settings(const Settings &) = delete;
    Settings &operator=(const Settings &) = delete;

    const GioLibrary &gio;
    GSettings *handle;
    GDBusConnection *bus = nullptr; // the one that the library follows the settings on
};

namespace {

bool isBoolean(const GioLibrary &gio, GSettingsSchema *schema, const char *key) {
    if (gio.schemaHasKey(schema, key) == FALSE) {
        return false;
    }
    GSettingsSchemaKey *const description = gio.schemaGetKey(schema, key);
    const bool isIt = g_variant_type_equal(gio.schemaKeyGetValueType(description),
                                           G_VARIANT_TYPE_BOOLEAN) != FALSE;
    gio.schemaKeyUnref(description);
    return isIt;
}

} // namespace

SettingSwitch::SettingSwitch(QuietSetting setting, const Background &background,
                             std::function<void()> news)
    : SettingSwitch(std::move(setting), background, std::move(news), &GioLibrary::loaded) {}

SettingSwitch::SettingSwitch(QuietSetting setting, const Background &background,
                             std::function<void()> news, std::function<const GioLibrary *()> load)
    : m_setting(std::move(setting)), m_news(std::move(news)) {
    background.run(
        m_owner, [wanted = m_setting, load = std::move(load)] { return prepare(wanted, load()); },
        [this](const std::shared_ptr<Schema> &schema) {
            if (schema) {
                open(*schema);
            }
        });
}

SettingSwitch::~SettingSwitch() = default;

/// Everything slow, on any thread; null without such a setting. The library ends the process when
/// it is asked for a setting that is not installed, so that each part is looked up before.
std::shared_ptr<SettingSwitch::Schema> SettingSwitch::prepare(const QuietSetting &setting,
                                                              const GioLibrary *gio) {
    if (gio == nullptr) {
        return nullptr;
    }
    GSettingsSchemaSource *const source = gio->schemaSourceGetDefault();
    GSettingsSchema *const found =
        source == nullptr
            ? nullptr
            : gio->schemaSourceLookup(source, setting.schema.toUtf8().constData(), TRUE);
    if (found == nullptr) {
        return nullptr;
    }
    auto schema = std::make_shared<Schema>(*gio, found);
    if (gio->schemaGetPath(found) == nullptr ||
        !isBoolean(*gio, found, setting.key.toUtf8().constData())) {
        return nullptr;
    }
    gio->objectUnref(gio->settingsBackendGetDefault()); // it stays, ready for `open`
    return schema;
}

void SettingSwitch::open(const Schema &schema) {
    m_settings = std::make_shared<Settings>(schema);
    outliveBus(m_settings);
    m_news();
}

/// The library shares one connection to the session bus in the process, and has that end the
/// process when the bus ends. This one goes on.
void SettingSwitch::outliveBus(const std::shared_ptr<Settings> &settings) {
    const auto connected = [](GObject * /*source*/, GAsyncResult *result, gpointer data) {
        const std::unique_ptr<std::weak_ptr<Settings>> weakOwner(
            static_cast<std::weak_ptr<Settings> *>(data));
        const GioLibrary &gio = *GioLibrary::loaded(); // who asked had it
        GDBusConnection *const bus = gio.busGetFinish(result, nullptr);
        if (bus == nullptr) {
            return;
        }
        gio.connectionSetExitOnClose(bus, FALSE);
        if (const auto owner = weakOwner->lock()) {
            owner->bus = bus; // kept, since a connection made anew would end the process again
        } else {
            gio.objectUnref(bus);
        }
    };
    settings->gio.busGet(G_BUS_TYPE_SESSION, nullptr, connected,
                         std::make_unique<std::weak_ptr<Settings>>(settings).release());
}

std::optional<bool> SettingSwitch::isQuiet() const {
    if (!m_settings) {
        return std::nullopt;
    }
    const bool value = m_settings->gio.settingsGetBoolean(
                           m_settings->handle, m_setting.key.toUtf8().constData()) != FALSE;
    return value == m_setting.quietValue;
}

} // namespace zeph
