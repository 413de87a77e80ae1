// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/calendar/EdsSession.h"
#include "adapters/locale/SystemZone.h"
#include "base/WorkOwner.h"
#include "ports/Consent.h"
#include "ports/EventStore.h"

#include <chrono>
#include <memory>

namespace zeph {

class Calendar;
class Clock;
class EdsWorker;
class PluginFile;
class RunLoop;

/// The calendars and task lists of Evolution Data Server, behind two consents of our own. Before
/// one is given nothing is loaded and nobody is spoken to; the first question after it loads the
/// plug-in on a thread of its own. Once it is withdrawn, what was read is forgotten at once.
/// Answers come from the last word of the server, which tells changes by itself. Main thread only,
/// never held up.
class EdsEventStore : public EventStore {
public:
    /// `calendar` tells where days begin. Everything given outlives this.
    EdsEventStore(const Clock &clock, const Calendar &calendar, RunLoop &runLoop,
                  Consent &eventsConsent, Consent &remindersConsent,
                  const QString &pluginPath = installedPlugin(), const EdsPacing &pacing = {});
    ~EdsEventStore() override;

    /// Ends the reading for good and waits for its thread; false when that takes longer, as with
    /// a server that hangs. For the end of the process, which that thread must not outlive.
    bool finish(std::chrono::milliseconds patience);

    /// The plug-in beside the executable, else in the library folder of the installation.
    static QString installedPlugin();

    EventAccess authorizationStatus(EntityType type) override;
    std::optional<std::vector<CalendarEvent>> events(Date start, Date end,
                                                     bool withTitles) override;
    [[nodiscard]] Subscription subscribe(std::function<void()> handler) override;
    void fetchIncompleteReminders(
        Date dueBefore,
        std::function<void(std::optional<std::vector<Reminder>>)> completion) override;

    void requestFullAccess(EntityType type, AccessWish wish,
                           std::function<void(bool)> completion) override;

private:
    struct Question {
        Date dueBefore;
        std::function<void(std::optional<std::vector<Reminder>>)> completion;
    };

    Consent &consentTo(EntityType type);
    void consentChanged(EntityType type);
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
    Consent &m_eventsConsent;
    Consent &m_remindersConsent;
    std::shared_ptr<PluginFile> m_plugin; // shared with the worker, which may end later
    EdsPacing m_pacing;
    std::optional<SystemZone> m_zone; // found out at the first question
    ChangePublisher m_changes;

    EdsQuery m_query;
    Date m_roundBegan;
    bool m_owesEvents = false; // a question had to be refused
    std::optional<EdsEvents> m_events;
    std::optional<Date> m_eventsReadAt;
    std::optional<std::vector<Reminder>> m_reminders;
    std::optional<Date> m_remindersReadAt;
    Date m_remindersAskedAt;
    std::optional<Question> m_question;
    WorkOwner m_owner;
    std::unique_ptr<EdsWorker> m_worker;
    Subscription m_eventsConsentChanges;
    Subscription m_remindersConsentChanges;
};

} // namespace zeph
