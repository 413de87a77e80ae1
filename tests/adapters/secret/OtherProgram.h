// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <gio/gio.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

namespace zeph {

/// Another program that keeps secrets with the service, under the attributes of ours. Its calls
/// block.
class OtherProgram {
public:
    explicit OtherProgram(const QString &address)
        : m_bus(g_dbus_connection_new_for_address_sync(
              address.toUtf8().constData(),
              static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
              nullptr, nullptr, nullptr)) {
        GVariant *const answer = call("", "Service.OpenSession",
                                      g_variant_new("(sv)", "plain", g_variant_new_string("")));
        const gchar *path = nullptr;
        g_variant_get_child(answer, 1, "&o", &path);
        m_session = path;
        g_variant_unref(answer);
    }
    ~OtherProgram() {
        g_dbus_connection_close_sync(m_bus, nullptr, nullptr);
        g_object_unref(m_bus);
    }
    OtherProgram(const OtherProgram &) = delete;
    OtherProgram &operator=(const OtherProgram &) = delete;

    /// Keeps a secret as `schema` in a collection.
    void keep(const std::string &collection, const char *schema, const char *secret) {
        GVariant *const item = g_variant_new_parsed(
            "({'org.freedesktop.Secret.Item.Label': <'theirs'>,"
            "  'org.freedesktop.Secret.Item.Attributes': <{'service': 'com.tavi.integrations',"
            "  'account': 'integration.A', 'xdg:schema': %s}>},"
            " (%o, @ay [], %@ay, 'text/plain'), false)",
            schema, m_session.c_str(),
            g_variant_new_fixed_array(G_VARIANT_TYPE_BYTE, secret, std::strlen(secret), 1));
        g_variant_unref(call("/collection/" + collection, "Collection.CreateItem", item));
    }

    /// Makes a collection that opens without a password.
    void makeOpenCollection(const char *name) {
        GVariant *const collection =
            g_variant_new_parsed("({'org.freedesktop.Secret.Collection.Label': <%s>}, (%o, @ay [], "
                                 "@ay [], 'text/plain'))",
                                 name, m_session.c_str());
        g_variant_unref(call(
            "",
            "org.gnome.keyring.InternalUnsupportedGuiltRiddenInterface.CreateWithMasterPassword",
            collection));
    }

    /// The secrets that are there as `schema`.
    std::vector<std::string> kept(const char *schema) {
        GVariant *const found =
            call("", "Service.SearchItems", g_variant_new_parsed("({'xdg:schema': %s},)", schema));
        GVariant *const paths = g_variant_get_child_value(found, 0);
        std::vector<std::string> secrets;
        for (gsize index = 0; index < g_variant_n_children(paths); ++index) {
            const gchar *path = nullptr;
            g_variant_get_child(paths, index, "&o", &path);
            GVariant *const secret =
                call(path + rootLength, "Item.GetSecret", g_variant_new("(o)", m_session.c_str()));
            GVariant *const record = g_variant_get_child_value(secret, 0);
            GVariant *const data = g_variant_get_child_value(record, 2);
            gsize length = 0;
            const auto *bytes =
                static_cast<const gchar *>(g_variant_get_fixed_array(data, &length, 1));
            secrets.emplace_back(bytes, length);
            g_variant_unref(data);
            g_variant_unref(record);
            g_variant_unref(secret);
        }
        g_variant_unref(paths);
        g_variant_unref(found);
        return secrets;
    }

private:
    static constexpr const char *root = "/org/freedesktop/secrets";
    static constexpr std::size_t rootLength = 24;

    /// The answer to a call such as "Service.OpenSession", or one of another interface by its full
    /// name; fails the test when there is none.
    GVariant *call(const std::string &path, const std::string &method, GVariant *arguments) {
        const auto dot = method.rfind('.');
        const std::string interface =
            (method.find('.') == dot ? "org.freedesktop.Secret." : "") + method.substr(0, dot);
        GError *failure = nullptr;
        GVariant *const answer = g_dbus_connection_call_sync(
            m_bus, "org.freedesktop.secrets", (root + path).c_str(), interface.c_str(),
            method.substr(dot + 1).c_str(), arguments, nullptr, G_DBUS_CALL_FLAGS_NONE, 10'000,
            nullptr, &failure);
        EXPECT_NE(answer, nullptr) << method << ": " << (failure ? failure->message : "");
        g_clear_error(&failure);
        return answer;
    }

    GDBusConnection *m_bus;
    std::string m_session;
};

} // namespace zeph
