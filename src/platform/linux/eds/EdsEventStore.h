// SPDX-License-Identifier: MIT
#pragma once

#include "platform/EventStore.h"
#include "platform/icu/SystemZone.h"
#include "platform/linux/Consent.h"
#include "platform/linux/eds/EdsSession.h"

#include <chrono>
#include <memory>

namespace zeph {

class Calendar;
class Clock;
class EdsWorker;
class RunLoop;
class UserDefaults;

/// The calendars and task lists of Evolution Data Server, behind our own consent. Before the
/// consent nothing is loaded and nobody is spoken to; the first question after it loads the
/// plug-in on a thread of its own. Answers come from the last word of the server, which tells
/// changes by itself. Main thread only, never held up.
class EdsEventStore : public EventStore {
public:
    /// `calendar` tells where days begin.
    EdsEventStore(const Clock &clock, const Calendar &calendar, RunLoop &runLoop,
                  const UserDefaults &defaults, QString pluginPath = installedPlugin(),
                  const EdsPacing &pacing = {});
    ~EdsEventStore() override;

    /// Ends the reading for good and waits for its thread; false when that takes longer, as with
    /// a server that hangs. For the end of the process, which that thread must not outlive.
    bool finish(std::chrono::milliseconds patience);

    /// The plug-in beside the executable, else in the library folder of the installation.
    static QString installedPlugin();

    EventAccess authorizationStatus(EntityType type) override;
    std::optional<std::vector<CalendarEvent>> events(Date start, Date end,
                                                     bool withTitles) override;
    void setEventsHandler(std::function<void()> handler) override;
    void fetchIncompleteReminders(
        Date dueBefore,
        std::function<void(std::optional<std::vector<Reminder>>)> completion) override;

    /// There is no prompt on this system: answers with the present state and changes nothing.
    void requestFullAccess(EntityType type, std::function<void(bool)> completion) override;

private:
    struct Question {
        Date dueBefore;
        std::function<void(std::optional<std::vector<Reminder>>)> completion;
    };

    void forget(EntityType type);
    void submit(EdsQuery query);
    EdsQuery currentQuery();
    void restUnaskedReminders(EdsQuery &query);
    void forgetReminders();
    bool isOutdated(const std::optional<Date> &readAt) const;
    void takeEvents(EdsEvents events);
    void takeTasks(const std::vector<EdsTask> &tasks);
    void answer(Question question);

    const Clock &m_clock;
    const Calendar &m_calendar;
    RunLoop &m_runLoop;
    Consent m_calendarConsent;
    Consent m_remindersConsent;
    QString m_pluginPath;
    EdsPacing m_pacing;
    std::optional<SystemZone> m_zone; // found out at the first question
    std::function<void()> m_eventsHandler;

    EdsQuery m_query;
    Date m_roundBegan;
    bool m_owesEvents = false; // a question had to be refused
    std::optional<EdsEvents> m_events;
    std::optional<Date> m_eventsReadAt;
    std::optional<std::vector<Reminder>> m_reminders;
    std::optional<Date> m_remindersReadAt;
    Date m_remindersAskedAt;
    std::optional<Question> m_question;
    std::shared_ptr<bool> m_alive; // lets posted answers see that the store is gone
    std::unique_ptr<EdsWorker> m_worker;
};

} // namespace zeph
