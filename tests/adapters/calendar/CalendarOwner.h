// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/calendar/plugin/GLibHandles.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace zeph {

/// Somebody who keeps a calendar or a task list on the server: makes it, fills and changes it,
/// and removes it at the end.
class CalendarOwner {
public:
    explicit CalendarOwner(ECalClientSourceType type, bool enabled = true);
    ~CalendarOwner();
    CalendarOwner(const CalendarOwner &) = delete;
    CalendarOwner &operator=(const CalendarOwner &) = delete;

    /// Adds an event or a task with these lines, a UID given; false when the server refuses.
    bool add(const QByteArray &uid, const QByteArray &lines);
    bool addAll(const QList<QByteArray> &lines);

    /// Changes the one occurrence that `recurrenceLine` names, or with none the whole entry.
    bool change(const QByteArray &uid, const QByteArray &lines,
                const QByteArray &recurrenceLine = {});
    bool remove(const QByteArray &uid);
    bool setEnabled(bool enabled);

    /// True once the file of the calendar holds `text`; only then a killed server keeps it.
    bool isStored(const QByteArray &text) const;

private:
    bool makeSource(bool enabled);
    bool connectClient();
    void noteFailure(GError *error);
    GLibPtr<ICalComponent> entry(const QByteArray &lines) const;

    ECalClientSourceType m_type;
    GLibPtr<ESourceRegistry> m_registry;
    GLibPtr<ESource> m_source;
    GLibPtr<ECalClient> m_client;
    QString m_failure;
};

} // namespace zeph
