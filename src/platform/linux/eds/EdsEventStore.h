// SPDX-License-Identifier: MIT
#pragma once

#include "platform/EventStore.h"
#include "platform/linux/Consent.h"
#include "platform/linux/eds/EdsSession.h"

#include <memory>

namespace zeph {

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
    EdsEventStore(const Clock &clock, RunLoop &runLoop, const UserDefaults &defaults,
                  QString pluginPath = installedPlugin());
    ~EdsEventStore() override;

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
    void submit(const EdsQuery &query);
    EdsQuery currentQuery() const;
    void restUnaskedReminders(EdsQuery &query) const;
    bool isOutdated(const std::optional<Date> &readAt) const;
    void takeEvents(EdsEvents events);
    void takeReminders(std::vector<Reminder> reminders);
    void answer(Question question);

    const Clock &m_clock;
    RunLoop &m_runLoop;
    Consent m_calendarConsent;
    Consent m_remindersConsent;
    QString m_pluginPath;
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
