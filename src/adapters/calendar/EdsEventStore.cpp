// SPDX-License-Identifier: MIT
#include "adapters/calendar/EdsEventStore.h"

#include "adapters/calendar/EdsWorker.h"
#include "adapters/plugin/PluginFile.h"
#include "ports/Calendar.h"
#include "ports/Clock.h"
#include "ports/RunLoop.h"

#include <algorithm>
#include <chrono>
#include <map>
#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

// The watched window reaches over tomorrow, however long that is, so that at midnight the new
// day is known already.
constexpr double readAhead = 25 * 3600.0;
// Changes are told, so this only guards against a server that forgot us.
constexpr double refreshAge = 30 * 60.0;
constexpr double answerPatience = 5 * 60.0;
// The reminders widget asks every 45 s; once it is switched off the task lists may rest.
constexpr double reminderRest = 5 * 60.0;
constexpr std::chrono::milliseconds endPatience{100};

bool overlaps(const EdsOccurrence &occurrence, Date start, Date end) {
    return occurrence.start < end && (occurrence.end > start || occurrence.start >= start);
}

} // namespace

EdsEventStore::EdsEventStore(const Clock &clock, const Calendar &calendar, RunLoop &runLoop,
                             Consent &eventsConsent, Consent &remindersConsent,
                             const QString &pluginPath, const EdsPacing &pacing)
    : m_clock(clock),
      m_calendar(calendar),
      m_runLoop(runLoop),
      m_eventsConsent(eventsConsent),
      m_remindersConsent(remindersConsent),
      m_plugin(std::make_shared<PluginFile>(pluginPath)),
      m_pacing(pacing),
      m_eventsConsentChanges(
          eventsConsent.subscribe([this] { consentChanged(EntityType::event); })),
      m_remindersConsentChanges(
          remindersConsent.subscribe([this] { consentChanged(EntityType::reminder); })) {}

EdsEventStore::~EdsEventStore() {
    finish(endPatience);
}

bool EdsEventStore::finish(std::chrono::milliseconds patience) {
    return !m_worker || m_worker->finish(patience);
}

QString EdsEventStore::installedPlugin() {
    return PluginFile::installed(QStringLiteral("zeph-eds.so"));
}

Consent &EdsEventStore::consentTo(EntityType type) {
    return type == EntityType::event ? m_eventsConsent : m_remindersConsent;
}

void EdsEventStore::consentChanged(EntityType type) {
    if (authorizationStatus(type) == EventAccess::fullAccess && type == EntityType::event) {
        m_changes.send(); // whoever asks now starts the reading
    }
}

EventAccess EdsEventStore::authorizationStatus(EntityType type) {
    const auto access = static_cast<EventAccess>(consentTo(type).state());
    if (access != EventAccess::fullAccess) {
        forget(type);
    }
    return access;
}

void EdsEventStore::forget(EntityType type) {
    EdsQuery query = m_query;
    if (type == EntityType::event) {
        query.events = false;
        m_events.reset();
        m_eventsReadAt.reset();
        m_owesEvents = false;
    } else {
        query.reminders = false;
        forgetReminders();
    }
    submit(query);
}

void EdsEventStore::forgetReminders() {
    m_reminders.reset();
    m_remindersReadAt.reset();
    m_question.reset();
}

void EdsEventStore::submit(EdsQuery query) {
    restUnaskedReminders(query);
    if (query == m_query) {
        return;
    }
    if (query.round != m_query.round) {
        m_roundBegan = m_clock.now();
    }
    m_query = query;
    if (!query.events && !query.reminders) {
        m_worker.reset();
        return;
    }
    if (!m_worker) {
        m_roundBegan = m_clock.now();
        m_worker = std::make_unique<EdsWorker>(
            m_runLoop, m_plugin, m_pacing,
            EdsHandlers{[this](EdsEvents events) { takeEvents(std::move(events)); },
                        [this](const std::vector<EdsTask> &tasks) { takeTasks(tasks); }});
    }
    m_worker->ask(query);
}

EdsQuery EdsEventStore::currentQuery() {
    if (m_zone) {
        m_zone->refresh();
    } else {
        m_zone.emplace();
    }
    EdsQuery query = m_query;
    query.zone = m_zone->id().toUtf8();
    return query;
}

/// True when an answer is overdue, or the last one so old that it should be checked.
bool EdsEventStore::isOutdated(const std::optional<Date> &readAt) const {
    const double sinceRound = secondsApart(m_clock.now(), m_roundBegan);
    return readAt ? secondsApart(m_clock.now(), *readAt) > refreshAge && sinceRound > answerPatience
                  : sinceRound > answerPatience;
}

/// What is not followed any more is not kept either, or it would be told as news later.
void EdsEventStore::restUnaskedReminders(EdsQuery &query) {
    if (query.reminders && secondsApart(m_clock.now(), m_remindersAskedAt) > reminderRest) {
        query.reminders = false;
        forgetReminders();
    }
}

std::optional<std::vector<CalendarEvent>> EdsEventStore::events(Date start, Date end,
                                                                bool withTitles) {
    if (authorizationStatus(EntityType::event) != EventAccess::fullAccess) {
        return std::nullopt;
    }
    EdsQuery query = currentQuery();
    query.events = true;
    query.withTitles = withTitles;
    query.windowStart = start;
    query.windowEnd = end + readAhead;
    query.round += m_query.events && isOutdated(m_eventsReadAt) ? 1 : 0;
    submit(query);

    if (m_events && !withTitles && m_events->withTitles) {
        for (EdsOccurrence &occurrence : m_events->occurrences) {
            occurrence.title.reset();
        }
        m_events->withTitles = false;
    }
    if (!m_events || start < m_events->windowStart || end > m_events->windowEnd) {
        m_owesEvents = true;
        return std::nullopt;
    }
    m_owesEvents = withTitles && !m_events->withTitles;
    std::vector<CalendarEvent> answer;
    for (const EdsOccurrence &occurrence : m_events->occurrences) {
        if (overlaps(occurrence, start, end)) {
            answer.push_back({occurrence.isAllDay, occurrence.start, occurrence.title});
        }
    }
    return answer;
}

Subscription EdsEventStore::subscribe(std::function<void()> handler) {
    return m_changes.subscribe(std::move(handler));
}

void EdsEventStore::takeEvents(EdsEvents events) {
    // Consent, titles and the window may have changed while this was on its way.
    if (authorizationStatus(EntityType::event) != EventAccess::fullAccess || !m_query.events ||
        (events.withTitles && !m_query.withTitles)) {
        return;
    }
    const bool isAsked =
        events.windowStart == m_query.windowStart && events.withTitles == m_query.withTitles;
    m_events = std::move(events);
    m_eventsReadAt = m_clock.now();
    if (m_owesEvents && isAsked) {
        m_owesEvents = false;
        m_changes.send();
    }
}

void EdsEventStore::fetchIncompleteReminders(
    Date dueBefore, std::function<void(std::optional<std::vector<Reminder>>)> completion) {
    if (authorizationStatus(EntityType::reminder) != EventAccess::fullAccess) {
        return;
    }
    m_remindersAskedAt = m_clock.now();
    EdsQuery query = currentQuery();
    query.reminders = true;
    query.round += m_query.reminders && isOutdated(m_remindersReadAt) ? 1 : 0;
    submit(query);
    Question question{dueBefore, std::move(completion)};
    if (m_reminders) {
        answer(std::move(question));
    } else {
        m_question = std::move(question);
    }
}

void EdsEventStore::takeTasks(const std::vector<EdsTask> &tasks) {
    if (authorizationStatus(EntityType::reminder) != EventAccess::fullAccess ||
        !m_query.reminders) {
        return;
    }
    std::map<Date, Date> mornings; // many are due on the same few days
    m_reminders.emplace().reserve(tasks.size());
    for (const EdsTask &task : tasks) {
        Date due = task.due;
        if (task.isDueAllDay) {
            const auto known = mornings.find(due);
            due = known != mornings.end()
                      ? known->second
                      : mornings.emplace(due, m_calendar.startOfDay(due)).first->second;
        }
        m_reminders->push_back({due, task.title});
    }
    m_remindersReadAt = m_clock.now();
    if (m_question) {
        answer(*std::exchange(m_question, std::nullopt));
    }
}

void EdsEventStore::answer(Question question) {
    m_runLoop.post(m_owner.whileAlive([this, question = std::move(question)] {
        if (!m_reminders || authorizationStatus(EntityType::reminder) != EventAccess::fullAccess) {
            return;
        }
        std::vector<Reminder> due;
        for (const Reminder &reminder : *m_reminders) {
            if (reminder.due && *reminder.due < question.dueBefore) {
                due.push_back(reminder);
            }
        }
        question.completion(std::move(due));
    }));
}

void EdsEventStore::requestFullAccess(EntityType type, AccessWish wish,
                                      std::function<void(bool)> completion) {
    Consent &consent = consentTo(type);
    if (wish == AccessWish::ofUser && consent.state() == ConsentState::notDetermined) {
        consent.set(ConsentState::granted);
    }
    m_runLoop.post([isGranted = consent.isGranted(), completion = std::move(completion)] {
        completion(isGranted);
    });
}

} // namespace zeph
