// SPDX-License-Identifier: MIT
#include "host/CalendarPermission.h"

#include "ports/EventStore.h"

#include <utility>

namespace zeph {

CalendarPermission::CalendarPermission(EventStore &store) : m_store(store) {}

void CalendarPermission::requestAccess(std::function<void(bool)> completion) {
    m_store.requestFullAccess(EntityType::event, AccessWish::ofUser, std::move(completion));
}

void CalendarPermission::requestRemindersAccess(std::function<void(bool)> completion) {
    m_store.requestFullAccess(EntityType::reminder, AccessWish::ofUser, std::move(completion));
}

} // namespace zeph
