// SPDX-License-Identifier: MIT
#include "adapters/secret/SecretVault.h"

#include "adapters/secret/SecretLoop.h"

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

using BorrowedList = std::unique_ptr<GList, decltype(&g_list_free)>;

/// The entries that are locked, for as long as `items` lives.
BorrowedList lockedIn(const ObjectList &items) {
    BorrowedList locked(nullptr, g_list_free);
    forEach(items, [&locked](SecretItem *item) {
        if (isLocked(item)) {
            locked.reset(g_list_prepend(locked.release(), item));
        }
    });
    return locked;
}

/// Without an address a bus would be started for the asking, and nobody would be on it.
bool hasSessionBus() {
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
           QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
}

/// How a call ended that a person may have had to answer. Where one dismissed the prompt for the
/// first collection, GNOME Keyring says that the collection knows no method.
SecretOutcome outcomeOf(bool isDone, GError *failure) {
    const SecretPtr<GError> owned(failure);
    const auto failedWith = [failure](GQuark domain, int code) {
        return g_error_matches(failure, domain, code) != FALSE;
    };
    if (isDone) {
        return SecretOutcome::done;
    }
    const bool isRefused = failure == nullptr || failedWith(G_IO_ERROR, G_IO_ERROR_CANCELLED) ||
                           failedWith(SECRET_ERROR, SECRET_ERROR_IS_LOCKED) ||
                           failedWith(G_DBUS_ERROR, G_DBUS_ERROR_UNKNOWN_METHOD);
    return isRefused ? SecretOutcome::refused : SecretOutcome::unavailable;
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
    // The connection that libraries share stays, of no use, while somebody else still holds it.
    if (!made.bus || g_dbus_connection_is_closed(made.bus.get()) != FALSE) {
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

SecretAnswer<ObjectList> SecretVault::search(SecretService *service, const QString &name,
                                             const std::optional<QString> &account) {
    const auto wanted = attributes(name, account);
    const auto found = m_loop.await([&](auto *cancellable, auto callback, auto data) {
        secret_service_search(service, &schema, wanted.get(), SECRET_SEARCH_ALL, cancellable,
                              callback, data);
    });
    if (!found) {
        return {};
    }
    GError *failure = nullptr;
    ObjectList items(secret_service_search_finish(service, found.get(), &failure));
    const SecretPtr<GError> owned(failure);
    return {failure ? SecretOutcome::unavailable : SecretOutcome::done, std::move(items)};
}

/// What there is, unlocked where that may be asked for; refused when something stays locked. A
/// locked entry shows its attributes only afterwards, hence the second search.
SecretAnswer<ObjectList> SecretVault::find(SecretService *service, const QString &name,
                                           const std::optional<QString> &account, Asking asking) {
    auto found = search(service, name, account);
    const auto locked = lockedIn(found.value);
    if (isEnough(found.value, asking)) {
        return found;
    }
    const bool mayAsk = asking == Asking::always || !m_wasRefused;
    const auto unlocked = mayAsk ? unlock(service, locked.get()) : SecretOutcome::refused;
    if (unlocked != SecretOutcome::done) {
        found.outcome = unlocked;
        return found;
    }
    found = search(service, name, account);
    // Of several collections the service may open some and leave the others.
    if (found.isDone() && !isEnough(found.value, asking)) {
        m_wasRefused = true;
        found.outcome = SecretOutcome::refused;
    }
    return found;
}

/// Whether nothing has to be unlocked any more.
bool SecretVault::isEnough(const ObjectList &items, Asking asking) {
    bool isKnown = false;
    forEach(items,
            [&](SecretItem *item) { isKnown = isKnown || (!isLocked(item) && isOurs(item)); });
    return !lockedIn(items) || (asking == Asking::forOne && isKnown);
}

/// Asks for the password where one is needed.
SecretOutcome SecretVault::unlock(SecretService *service, GList *objects) {
    const auto unlocked = m_loop.await(
        [&](auto *cancellable, auto callback, auto data) {
            secret_service_unlock(service, objects, cancellable, callback, data);
        },
        true);
    if (!unlocked) {
        return SecretOutcome::unavailable;
    }
    GError *failure = nullptr;
    const int count = secret_service_unlock_finish(service, unlocked.get(), nullptr, &failure);
    const auto outcome = outcomeOf(count > 0, failure);
    if (outcome != SecretOutcome::unavailable) {
        m_wasRefused = outcome == SecretOutcome::refused;
    }
    return outcome;
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

SecretAnswer<std::optional<QByteArray>> SecretVault::copy(const QString &service,
                                                          const QString &account) {
    const auto conversation = open();
    if (!conversation) {
        return {};
    }
    const auto found = find(conversation->service.get(), service, account, Asking::forOne);
    SecretAnswer<std::optional<QByteArray>> answer{found.outcome};
    forEach(found.value, [&](SecretItem *item) {
        if (!answer.value && !isLocked(item) && isOurs(item)) {
            answer.value = read(item);
            answer.outcome = answer.value ? SecretOutcome::done : SecretOutcome::unavailable;
        }
    });
    return answer;
}

SecretAnswer<std::vector<SecureItem>> SecretVault::copyAll(const QString &service) {
    const auto conversation = open();
    if (!conversation) {
        return {};
    }
    const auto found = find(conversation->service.get(), service, std::nullopt, Asking::forAll);
    SecretAnswer<std::vector<SecureItem>> answer{found.outcome};
    forEach(found.value, [&](SecretItem *item) {
        if (isLocked(item)) {
            answer.value.push_back({std::nullopt, std::nullopt});
        } else if (isOurs(item)) {
            answer.value.push_back({attribute(item, "account"), read(item)});
        }
    });
    return answer;
}

SecretOutcome SecretVault::remove(const QString &service, const QString &account) {
    const auto conversation = open();
    if (!conversation) {
        return SecretOutcome::unavailable;
    }
    const auto found = find(conversation->service.get(), service, account, Asking::always);
    auto outcome = found.outcome;
    forEach(found.value, [&](SecretItem *item) {
        const bool isDue = !isLocked(item) && isOurs(item);
        const auto removed = isDue ? remove(item) : SecretOutcome::done;
        outcome = removed == SecretOutcome::done ? outcome : removed;
    });
    return outcome;
}

SecretOutcome SecretVault::remove(SecretItem *item) {
    const auto removed =
        m_loop.await([&](auto *cancellable, auto callback,
                         auto data) { secret_item_delete(item, cancellable, callback, data); },
                     true);
    if (!removed) {
        return SecretOutcome::unavailable;
    }
    GError *failure = nullptr;
    const bool isDone = secret_item_delete_finish(item, removed.get(), &failure) != FALSE;
    return outcomeOf(isDone, failure);
}

/// Opens the default collection, unless it is not there: `isThere` tells.
SecretOutcome SecretVault::unlockDefault(SecretService *service, bool &isThere) {
    const auto found = m_loop.await([&](auto *cancellable, auto callback, auto data) {
        secret_collection_for_alias(service, SECRET_COLLECTION_DEFAULT, SECRET_COLLECTION_NONE,
                                    cancellable, callback, data);
    });
    if (!found) {
        return SecretOutcome::unavailable;
    }
    const SecretPtr<SecretCollection> collection(
        secret_collection_for_alias_finish(found.get(), nullptr));
    isThere = collection != nullptr;
    if (!isThere || secret_collection_get_locked(collection.get()) == FALSE) {
        return SecretOutcome::done;
    }
    GList only = {collection.get(), nullptr, nullptr};
    return unlock(service, &only);
}

SecretOutcome SecretVault::add(const QString &service, const QString &account,
                               const QByteArray &data) {
    const auto conversation = open();
    bool isThere = false;
    const auto unlocked = conversation ? unlockDefault(conversation->service.get(), isThere)
                                       : SecretOutcome::unavailable;
    if (unlocked != SecretOutcome::done) {
        return unlocked;
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
    if (!stored) {
        return SecretOutcome::unavailable;
    }
    GError *failure = nullptr;
    const bool isDone =
        secret_service_store_finish(conversation->service.get(), stored.get(), &failure) != FALSE;
    const auto outcome = outcomeOf(isDone, failure);
    return isDone ? removeOthers(conversation->service.get(), service, account, data) : outcome;
}

/// The service replaces an entry of the default collection only. One that can't be read may be
/// the new one, so it stays, and nobody is told that it replaced the others.
SecretOutcome SecretVault::removeOthers(SecretService *service, const QString &name,
                                        const QString &account, const QByteArray &data) {
    const auto found = search(service, name, account);
    auto outcome = found.outcome;
    forEach(found.value, [&](SecretItem *item) {
        if (isLocked(item) || !isOurs(item)) {
            return;
        }
        const auto kept = read(item);
        auto removed = kept ? SecretOutcome::done : SecretOutcome::unavailable;
        if (kept && kept != data) {
            removed = remove(item);
        }
        outcome = removed == SecretOutcome::done ? outcome : removed;
    });
    return outcome;
}

} // namespace zeph
