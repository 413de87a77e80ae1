// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace zeph {

class EventStore;

/// Requests access to events and reminders. Main thread only.
class CalendarPermission {
public:
    explicit CalendarPermission(EventStore &store);

    /// Asks for full access to events; answers later with whether it is granted.
    void requestAccess(std::function<void(bool)> completion);

    /// The same for reminders.
    void requestRemindersAccess(std::function<void(bool)> completion);

    EventStore &store() { return m_store; }

private:
    EventStore &m_store;
};

} // namespace zeph
