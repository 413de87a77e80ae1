// SPDX-License-Identifier: MIT
#include "platform/linux/secret/SecretVault.h"

#include "platform/linux/secret/SecretLoop.h"

#include <QFileInfo>

namespace zeph {

namespace {

/// Its name stands in every entry. A search for it would miss what a service that was started
/// locked holds, so the name is looked at afterwards.
const SecretSchema schema = {
    "com.tavi.integrations",
    SECRET_SCHEMA_DONT_MATCH_NAME,
    {{"service", SECRET_SCHEMA_ATTRIBUTE_STRING}, {"account", SECRET_SCHEMA_ATTRIBUTE_STRING}},
    0,
    nullptr,
    nullptr,
    nullptr,
    nullptr,
    nullptr,
    nullptr,
    nullptr};

SecretPtr<GHashTable> attributes(const QString &service, const std::optional<QString> &account) {
    SecretPtr<GHashTable> table(g_hash_table_new_full(g_str_hash, g_str_equal, nullptr, g_free));
    const auto insert = [&table](const char *name, const QString &value) {
        g_hash_table_insert(table.get(), const_cast<char *>(name), // a literal, never written to
                            g_strdup(value.toUtf8().constData()));
    };
    insert("service", service);
    if (account) {
        insert("account", *account);
    }
    return table;
}

std::optional<QString> attribute(SecretItem *item, const char *name) {
    const SecretPtr<GHashTable> table(secret_item_get_attributes(item));
    const auto *value =
        table ? static_cast<const char *>(g_hash_table_lookup(table.get(), name)) : nullptr;
    return value != nullptr ? std::optional(QString::fromUtf8(value)) : std::nullopt;
}

bool isLocked(SecretItem *item) {
    return secret_item_get_locked(item) != FALSE;
}

/// Entries of other programs are never touched. Of a locked one it can't be told.
bool isOurs(SecretItem *item) {
    return attribute(item, "xdg:schema") == QString::fromLatin1(schema.name);
}

/// Calls `use` for every item of the list.
template <typename Use>
void forEach(const ObjectList &items, Use use) {
    for (GList *entry = items.get(); entry != nullptr; entry = entry->next) {
        use(SECRET_ITEM(entry->data));
    }
}

/// Without an address a bus would be started for the asking, and nobody would be on it.
bool hasSessionBus() {
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
           QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
}

} // namespace

std::optional<SecretVault::Conversation> SecretVault::open() {
    if (!hasSessionBus()) {
        return std::nullopt;
    }
    Conversation made;
    const auto bus = m_loop.await([](auto *cancellable, auto callback, auto data) {
        g_bus_get(G_BUS_TYPE_SESSION, cancellable, callback, data);
    });
    made.bus.reset(bus ? g_bus_get_finish(bus.get(), nullptr) : nullptr);
    if (!made.bus) {
        return std::nullopt;
    }
    // The end of the session is the desktop's to tell, not that of a library.
    g_dbus_connection_set_exit_on_close(made.bus.get(), FALSE);
    const auto service = m_loop.await([](auto *cancellable, auto callback, auto data) {
        secret_service_open(SECRET_TYPE_SERVICE, nullptr, SECRET_SERVICE_OPEN_SESSION, cancellable,
                            callback, data);
    });
    made.service.reset(service ? secret_service_open_finish(service.get(), nullptr) : nullptr);
    return made.service ? std::optional(std::move(made)) : std::nullopt;
}

ObjectList SecretVault::search(SecretService *service, const QString &name,
                               const std::optional<QString> &account) {
    const auto wanted = attributes(name, account);
    const auto found = m_loop.await([&](auto *cancellable, auto callback, auto data) {
        secret_service_search(service, &schema, wanted.get(), SECRET_SEARCH_ALL, cancellable,
                              callback, data);
    });
    return ObjectList(found ? secret_service_search_finish(service, found.get(), nullptr)
                            : nullptr);
}

/// What there is, unlocked where that may be asked for. A locked entry shows its attributes only
/// afterwards, hence the second search.
ObjectList SecretVault::find(SecretService *service, const QString &name,
                             const std::optional<QString> &account, Asking asking) {
    auto items = search(service, name, account);
    std::unique_ptr<GList, decltype(&g_list_free)> locked(nullptr, g_list_free);
    bool isKnown = false;
    forEach(items, [&](SecretItem *item) {
        if (isLocked(item)) {
            locked.reset(g_list_prepend(locked.release(), item));
        } else {
            isKnown = isKnown || isOurs(item);
        }
    });
    const bool isEnough = asking == Asking::forOne && isKnown;
    const bool mayAsk = asking == Asking::always || !m_wasRefused;
    if (locked && !isEnough && mayAsk && unlock(service, locked.get())) {
        items = search(service, name, account);
    }
    return items;
}

/// True when the objects are unlocked now. Asks for the password where one is needed.
bool SecretVault::unlock(SecretService *service, GList *objects) {
    const auto unlocked = m_loop.await(
        [&](auto *cancellable, auto callback, auto data) {
            secret_service_unlock(service, objects, cancellable, callback, data);
        },
        true);
    if (!unlocked) {
        return false;
    }
    GError *failure = nullptr;
    const int count = secret_service_unlock_finish(service, unlocked.get(), nullptr, &failure);
    const SecretPtr<GError> owned(failure);
    if (count > 0 || failure == nullptr) {
        m_wasRefused = count <= 0;
    }
    return count > 0;
}

std::optional<QByteArray> SecretVault::read(SecretItem *item) {
    const auto loaded = m_loop.await([&](auto *cancellable, auto callback, auto data) {
        secret_item_load_secret(item, cancellable, callback, data);
    });
    if (!loaded || secret_item_load_secret_finish(item, loaded.get(), nullptr) == FALSE) {
        return std::nullopt;
    }
    const SecretPtr<SecretValue> value(secret_item_get_secret(item));
    if (!value) {
        return std::nullopt;
    }
    gsize length = 0;
    const char *bytes = secret_value_get(value.get(), &length);
    return QByteArray(bytes, static_cast<qsizetype>(length));
}

std::optional<QByteArray> SecretVault::copy(const QString &service, const QString &account) {
    std::optional<QByteArray> data;
    if (const auto conversation = open()) {
        const auto items = find(conversation->service.get(), service, account, Asking::forOne);
        forEach(items, [&](SecretItem *item) {
            if (!data && !isLocked(item) && isOurs(item)) {
                data = read(item);
            }
        });
    }
    return data;
}

std::vector<SecureItem> SecretVault::copyAll(const QString &service) {
    std::vector<SecureItem> copied;
    if (const auto conversation = open()) {
        const auto items = find(conversation->service.get(), service, std::nullopt, Asking::forAll);
        forEach(items, [&](SecretItem *item) {
            if (isLocked(item)) {
                copied.push_back({std::nullopt, std::nullopt});
            } else if (isOurs(item)) {
                copied.push_back({attribute(item, "account"), read(item)});
            }
        });
    }
    return copied;
}

void SecretVault::remove(const QString &service, const QString &account) {
    const auto conversation = open();
    if (!conversation) {
        return;
    }
    const auto items = find(conversation->service.get(), service, account, Asking::always);
    forEach(items, [&](SecretItem *item) {
        if (isLocked(item) || !isOurs(item)) {
            return;
        }
        const auto removed =
            m_loop.await([&](auto *cancellable, auto callback,
                             auto data) { secret_item_delete(item, cancellable, callback, data); },
                         true);
        if (removed) {
            secret_item_delete_finish(item, removed.get(), nullptr);
        }
    });
}

/// True when the default collection is open, or not there: `isThere` tells which.
bool SecretVault::unlockDefault(SecretService *service, bool &isThere) {
    const auto found = m_loop.await([&](auto *cancellable, auto callback, auto data) {
        secret_collection_for_alias(service, SECRET_COLLECTION_DEFAULT, SECRET_COLLECTION_NONE,
                                    cancellable, callback, data);
    });
    if (!found) {
        return false;
    }
    const SecretPtr<SecretCollection> collection(
        secret_collection_for_alias_finish(found.get(), nullptr));
    isThere = collection != nullptr;
    if (!isThere || secret_collection_get_locked(collection.get()) == FALSE) {
        return true;
    }
    GList only = {collection.get(), nullptr, nullptr};
    return unlock(service, &only);
}

void SecretVault::add(const QString &service, const QString &account, const QByteArray &data) {
    const auto conversation = open();
    bool isThere = false;
    if (!conversation || !unlockDefault(conversation->service.get(), isThere)) {
        return;
    }
    const auto wanted = attributes(service, account);
    const QByteArray label = QByteArrayLiteral("Tavi: ") + account.toUtf8();
    const SecretPtr<SecretValue> value(
        secret_value_new(data.constData(), data.size(), "text/plain"));
    const auto stored = m_loop.await(
        [&](auto *cancellable, auto callback, auto userData) {
            secret_service_store(conversation->service.get(), &schema, wanted.get(),
                                 SECRET_COLLECTION_DEFAULT, label.constData(), value.get(),
                                 cancellable, callback, userData);
        },
        !isThere); // the first collection is made with a password
    if (stored) {
        secret_service_store_finish(conversation->service.get(), stored.get(), nullptr);
    }
}

} // namespace zeph
