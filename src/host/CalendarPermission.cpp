// SPDX-License-Identifier: MIT
#include "host/CalendarPermission.h"

#include "platform/EventStore.h"

#include <utility>

namespace zeph {

CalendarPermission::CalendarPermission(EventStore &store) : m_store(store) {}

void CalendarPermission::requestAccess(std::function<void(bool)> completion) {
    m_store.requestFullAccess(EntityType::event, std::move(completion));
}

void CalendarPermission::requestRemindersAccess(std::function<void(bool)> completion) {
    m_store.requestFullAccess(EntityType::reminder, std::move(completion));
}

} // namespace zeph
