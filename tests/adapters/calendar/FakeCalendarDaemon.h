// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/bus/PrivateBus.h"

#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QList>
#include <QStringList>

#include <memory>

namespace zeph {

/// Evolution Data Server on a private bus as far as a reader sees it: one calendar with one event.
/// It can stop answering at any step, or end there.
class FakeCalendarDaemon : public QDBusVirtualObject {
public:
    explicit FakeCalendarDaemon(QString busAddress);

    /// What a reader asks, in this order: names of methods, "GetAll" with the interface's name.
    static const QStringList &steps();

    /// Takes the names of the server, as a process that starts.
    void appear();
    /// Leaves the bus, as a process that is killed.
    void vanish() { m_connection.reset(); }
    bool isThere() const { return m_connection != nullptr; }

    /// The lines of the event that a new view shows.
    void setEvent(const QByteArray &lines) { m_event = lines; }

    /// The question of this step stays unanswered until `release`.
    void holdAt(const QString &step) { m_holdAt = step; }
    void release();
    int heldQuestions() const { return int(m_held.size()); }

    /// Ends when the question of this step comes, once.
    void vanishAt(const QString &step) { m_vanishAt = step; }

    int questions() const { return m_questions; }

    QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    static QString stepOf(const QDBusMessage &message);
    QVariantList answerTo(const QString &step) const;
    void answer(const QDBusMessage &message);
    void showEvent(const QString &viewPath);
    void signal(const QString &path, const QString &name, const QVariantList &arguments);

    QString m_address;
    std::unique_ptr<BusConnection> m_connection;
    QByteArray m_event;
    QString m_holdAt;
    QString m_vanishAt;
    QList<QDBusMessage> m_held;
    int m_questions = 0;
};

} // namespace zeph
