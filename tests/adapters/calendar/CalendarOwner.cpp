// SPDX-License-Identifier: MIT
#include "adapters/calendar/CalendarOwner.h"

#include "support/WaitUntil.h"

#include <QFile>

#include <gtest/gtest.h>

namespace zeph {

namespace {

constexpr std::chrono::seconds startPatience{30};
constexpr guint32 doNotWaitForTheNetwork = static_cast<guint32>(-1);

/// Runs a call that reports by GError; a failure fails the test with the server's words.
template <typename Call>
bool succeeds(Call call) {
    GError *error = nullptr;
    const bool success = call(&error) != FALSE;
    const GLibPtr<GError> owned(error);
    EXPECT_TRUE(success) << (owned ? owned->message : "no reason given");
    return success;
}

} // namespace

CalendarOwner::CalendarOwner(ECalClientSourceType type, bool enabled) : m_type(type) {
    // Right after a start or a crash the servers don't know each other's sources yet.
    EXPECT_TRUE(waitUntil([&] { return makeSource(enabled); }, startPatience))
        << m_failure.toStdString();
    EXPECT_TRUE(waitUntil([&] { return m_source && connectClient(); }, startPatience))
        << m_failure.toStdString();
}

bool CalendarOwner::makeSource(bool enabled) {
    GError *error = nullptr;
    m_registry.reset(e_source_registry_new_sync(nullptr, &error));
    GLibPtr<ESource> fresh(e_source_new(nullptr, nullptr, nullptr));
    e_source_set_display_name(fresh.get(), "Test");
    e_source_set_parent(fresh.get(), "local-stub");
    e_source_set_enabled(fresh.get(), enabled ? TRUE : FALSE);
    auto *backend = static_cast<ESourceBackend *>(e_source_get_extension(
        fresh.get(), m_type == E_CAL_CLIENT_SOURCE_TYPE_EVENTS ? E_SOURCE_EXTENSION_CALENDAR
                                                               : E_SOURCE_EXTENSION_TASK_LIST));
    e_source_backend_set_backend_name(backend, "local");
    const bool made = m_registry && e_source_registry_commit_source_sync(
                                        m_registry.get(), fresh.get(), nullptr, &error) != FALSE;
    noteFailure(error);
    if (!made) {
        return false;
    }
    // From here on the registry's own object is the one that can be changed.
    const GLibPtr<char> uid(e_source_dup_uid(fresh.get()));
    return waitUntil(
        [&] {
            m_source.reset(e_source_registry_ref_source(m_registry.get(), uid.get()));
            return m_source != nullptr;
        },
        std::chrono::seconds(3));
}

bool CalendarOwner::connectClient() {
    GError *error = nullptr;
    EClient *const client =
        e_cal_client_connect_sync(m_source.get(), m_type, doNotWaitForTheNetwork, nullptr, &error);
    noteFailure(error);
    m_client.reset(client == nullptr ? nullptr : E_CAL_CLIENT(client));
    return m_client != nullptr;
}

void CalendarOwner::noteFailure(GError *error) {
    const GLibPtr<GError> owned(error);
    if (owned) {
        m_failure = QString::fromUtf8(owned->message);
    }
}

CalendarOwner::~CalendarOwner() {
    if (m_source) {
        e_source_remove_sync(m_source.get(), nullptr, nullptr);
    }
}

GLibPtr<ICalComponent> CalendarOwner::entry(const QByteArray &lines) const {
    const QByteArray kind = m_type == E_CAL_CLIENT_SOURCE_TYPE_EVENTS ? "VEVENT" : "VTODO";
    QByteArray text = "BEGIN:" + kind + "\n" + lines + "\nEND:" + kind + "\n";
    text.replace("\n", "\r\n");
    return GLibPtr<ICalComponent>(i_cal_component_new_from_string(text.constData()));
}

bool CalendarOwner::add(const QByteArray &uid, const QByteArray &lines) {
    return addAll({"UID:" + uid + "\n" + lines});
}

bool CalendarOwner::addAll(const QList<QByteArray> &lines) {
    GSList *list = nullptr;
    for (const QByteArray &one : lines) {
        list = g_slist_prepend(list, entry(one).release());
    }
    GSList *uids = nullptr;
    const bool success = succeeds([&](GError **error) {
        return e_cal_client_create_objects_sync(m_client.get(), list, E_CAL_OPERATION_FLAG_NONE,
                                                &uids, nullptr, error);
    });
    g_slist_free_full(uids, g_free);
    g_slist_free_full(list, g_object_unref);
    return success;
}

bool CalendarOwner::change(const QByteArray &uid, const QByteArray &lines,
                           const QByteArray &recurrenceLine) {
    const auto changed = entry("UID:" + uid + "\n" +
                               (recurrenceLine.isEmpty() ? "" : recurrenceLine + "\n") + lines);
    const auto scope = recurrenceLine.isEmpty() ? E_CAL_OBJ_MOD_ALL : E_CAL_OBJ_MOD_THIS;
    return succeeds([&](GError **error) {
        return e_cal_client_modify_object_sync(m_client.get(), changed.get(), scope,
                                               E_CAL_OPERATION_FLAG_NONE, nullptr, error);
    });
}

bool CalendarOwner::remove(const QByteArray &uid) {
    return succeeds([&](GError **error) {
        return e_cal_client_remove_object_sync(m_client.get(), uid.constData(), nullptr,
                                               E_CAL_OBJ_MOD_ALL, E_CAL_OPERATION_FLAG_NONE,
                                               nullptr, error);
    });
}

bool CalendarOwner::setEnabled(bool enabled) {
    e_source_set_enabled(m_source.get(), enabled ? TRUE : FALSE);
    return succeeds(
        [&](GError **error) { return e_source_write_sync(m_source.get(), nullptr, error); });
}

bool CalendarOwner::isStored(const QByteArray &text) const {
    const bool isCalendar = m_type == E_CAL_CLIENT_SOURCE_TYPE_EVENTS;
    QFile file(QFile::decodeName(
        qgetenv("XDG_DATA_HOME") + "/evolution/" + (isCalendar ? "calendar/" : "tasks/") +
        e_source_get_uid(m_source.get()) + (isCalendar ? "/calendar.ics" : "/tasks.ics")));
    return file.open(QFile::ReadOnly) && file.readAll().contains(text);
}

} // namespace zeph
