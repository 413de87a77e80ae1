// SPDX-License-Identifier: MIT
#include "adapters/calendar/FakeCalendarDaemon.h"

#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QTimer>
#include <QVariantMap>

#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

using Interfaces = QMap<QString, QVariantMap>;
using ManagedObjects = QMap<QDBusObjectPath, Interfaces>;

const QString servicePrefix = u"org.gnome.evolution.dataserver."_s;
const QString pathPrefix = u"/org/gnome/evolution/dataserver/"_s;

ManagedObjects oneSource() {
    const QVariantMap properties{{u"UID"_s, u"fake"_s},
                                 {u"Data"_s,
                                  u"[Data Source]\nDisplayName=Fake\nEnabled=true\nParent=\n\n"
                                  "[Calendar]\nBackendName=local\n"_s},
                                 {u"ConnectionStatus"_s, u"connected"_s}};
    return {{QDBusObjectPath(pathPrefix + u"SourceManager/Source_1"_s),
             {{servicePrefix + u"Source"_s, properties}}}};
}

QVariantMap calendarProperties() {
    return {{u"Online"_s, true},
            {u"Revision"_s, u""_s},
            {u"Writable"_s, true},
            {u"CacheDir"_s, u"/nonexistent"_s},
            {u"Capabilities"_s, QStringList()},
            {u"DefaultObject"_s, u""_s},
            {u"CalEmailAddress"_s, u""_s},
            {u"AlarmEmailAddress"_s, u""_s}};
}

} // namespace

FakeCalendarDaemon::FakeCalendarDaemon(QString busAddress) : m_address(std::move(busAddress)) {
    qDBusRegisterMetaType<Interfaces>();
    qDBusRegisterMetaType<ManagedObjects>();
}

const QStringList &FakeCalendarDaemon::steps() {
    static const QStringList steps{u"GetManagedObjects"_s,
                                   u"GetAll SourceManager"_s,
                                   u"GetAll CalendarFactory"_s,
                                   u"OpenCalendar"_s,
                                   u"GetAll Calendar"_s,
                                   u"Open"_s,
                                   u"GetView"_s,
                                   u"GetAll CalendarView"_s,
                                   u"SetFieldsOfInterest"_s,
                                   u"Start"_s};
    return steps;
}

void FakeCalendarDaemon::appear() {
    m_connection = std::make_unique<BusConnection>(m_address);
    ASSERT_TRUE(m_connection->bus().registerVirtualObject(u"/"_s, this, QDBusConnection::SubPath));
    // The bus may still have to notice that an earlier one has gone.
    for (const QString &name : {u"Sources5"_s, u"Calendar8"_s}) {
        ASSERT_TRUE(
            eventually([&] { return m_connection->bus().registerService(servicePrefix + name); }));
    }
}

void FakeCalendarDaemon::release() {
    m_holdAt.clear();
    const auto held = std::exchange(m_held, {});
    for (const QDBusMessage &message : held) {
        answer(message);
    }
}

QString FakeCalendarDaemon::introspect(const QString & /*path*/) const {
    return {};
}

QString FakeCalendarDaemon::stepOf(const QDBusMessage &message) {
    const QString method = message.member();
    const bool isGetAll = method == u"GetAll"_s;
    return isGetAll ? u"GetAll "_s + message.arguments().value(0).toString().section(u'.', -1)
                    : method;
}

bool FakeCalendarDaemon::handleMessage(const QDBusMessage &message,
                                       const QDBusConnection & /*connection*/) {
    ++m_questions;
    const QString step = stepOf(message);
    message.setDelayedReply(true);
    if (step == m_vanishAt) {
        m_vanishAt.clear();
        QTimer::singleShot(0, this, [this] { vanish(); });
    } else if (step == m_holdAt) {
        m_held.append(message);
    } else {
        answer(message);
    }
    return true;
}

QVariantList FakeCalendarDaemon::answerTo(const QString &step) const {
    if (step == u"GetManagedObjects"_s) {
        return {QVariant::fromValue(oneSource())};
    }
    if (step == u"OpenCalendar"_s) {
        return {pathPrefix + u"Subprocess/1/1"_s, servicePrefix + u"Calendar8"_s};
    }
    if (step == u"GetAll Calendar"_s) {
        return {calendarProperties()};
    }
    if (step.startsWith(u"GetAll "_s)) {
        return {QVariantMap()};
    }
    if (step == u"Open"_s) {
        return {QStringList()};
    }
    if (step == u"GetView"_s) {
        return {QVariant::fromValue(QDBusObjectPath(pathPrefix + u"CalendarView/1/1"_s))};
    }
    return {};
}

void FakeCalendarDaemon::answer(const QDBusMessage &message) {
    if (!m_connection) {
        return;
    }
    const QString step = stepOf(message);
    if (message.isReplyRequired()) {
        m_connection->bus().send(message.createReply(answerTo(step)));
    }
    if (step == u"Start"_s) {
        showEvent(message.path());
    }
}

void FakeCalendarDaemon::showEvent(const QString &viewPath) {
    QByteArray text = "BEGIN:VEVENT\n" + m_event + "\nEND:VEVENT\n";
    text.replace("\n", "\r\n");
    signal(viewPath, u"ObjectsAdded"_s, {QStringList{QString::fromUtf8(text)}});
    signal(viewPath, u"Complete"_s, {QString(u""_s), QString(u""_s)});
}

void FakeCalendarDaemon::signal(const QString &path, const QString &name,
                                const QVariantList &arguments) {
    QDBusMessage message =
        QDBusMessage::createSignal(path, servicePrefix + u"CalendarView"_s, name);
    message.setArguments(arguments);
    m_connection->bus().send(message);
}

} // namespace zeph
