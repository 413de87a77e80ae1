// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11IdleAlarm.h"

#include "adapters/session/x11/X11Connection.h"

#include <cstddef>
#include <string_view>

namespace zeph {

namespace {

constexpr std::string_view kIdleTime = "IDLETIME"; // milliseconds since the last input of any kind

xcb_sync_int64_t wide(std::int64_t value) {
    return {static_cast<std::int32_t>(value >> 32), static_cast<std::uint32_t>(value)};
}

std::int64_t narrow(const xcb_sync_int64_t &value) {
    return (std::int64_t{value.hi} << 32) | value.lo;
}

// The name follows the 14 bytes of its head. The library's own accessor looks two bytes later,
// after the padding that the C structure has and the protocol has not.
std::string_view nameOf(const xcb_sync_systemcounter_t &counter) {
    const char *head = reinterpret_cast<const char *>(&counter);
    return {head + offsetof(xcb_sync_systemcounter_t, name_len) + sizeof counter.name_len,
            counter.name_len};
}

xcb_sync_counter_t findIdleCounter(X11Connection &connection) {
    // The server refuses every other request of the extension before this one.
    const auto version = xcb_sync_initialize(connection.xcb(), 3, 1);
    xcb_discard_reply(connection.xcb(), version.sequence);
    const X11Reply<xcb_sync_list_system_counters_reply_t> counters(
        xcb_sync_list_system_counters_reply(
            connection.xcb(), xcb_sync_list_system_counters(connection.xcb()), nullptr));
    if (counters) {
        auto it = xcb_sync_list_system_counters_counters_iterator(counters.get());
        for (; it.rem > 0; xcb_sync_systemcounter_next(&it)) {
            if (nameOf(*it.data) == kIdleTime) {
                return it.data->counter;
            }
        }
    }
    return XCB_NONE;
}

} // namespace

std::unique_ptr<X11IdleAlarm> X11IdleAlarm::create(X11Connection &connection,
                                                   std::chrono::milliseconds limit) {
    const xcb_sync_counter_t counter =
        connection.extension(X11Extension::sync) ? findIdleCounter(connection) : XCB_NONE;
    return counter == XCB_NONE
               ? nullptr
               : std::unique_ptr<X11IdleAlarm>(new X11IdleAlarm(connection, limit, counter));
}

X11IdleAlarm::X11IdleAlarm(X11Connection &connection, std::chrono::milliseconds limit,
                           xcb_sync_counter_t counter)
    : X11EventListener(connection),
      m_limit(limit),
      m_firstEvent(connection.extension(X11Extension::sync)->first_event),
      m_becameQuiet(xcb_generate_id(connection.xcb())),
      m_becameBusy(xcb_generate_id(connection.xcb())) {
    set(m_becameQuiet, counter, XCB_SYNC_TESTTYPE_POSITIVE_TRANSITION,
        limit + std::chrono::milliseconds(1));
    set(m_becameBusy, counter, XCB_SYNC_TESTTYPE_NEGATIVE_TRANSITION, limit);
    // After the alarms, so that no change falls in between.
    const X11Reply<xcb_sync_query_counter_reply_t> now(xcb_sync_query_counter_reply(
        connection.xcb(), xcb_sync_query_counter(connection.xcb(), counter), nullptr));
    m_isQuiet = now && narrow(now->counter_value) > limit.count();
}

X11IdleAlarm::~X11IdleAlarm() {
    xcb_sync_destroy_alarm(connection().xcb(), m_becameQuiet);
    xcb_sync_destroy_alarm(connection().xcb(), m_becameBusy);
}

void X11IdleAlarm::set(xcb_sync_alarm_t alarm, xcb_sync_counter_t counter, xcb_sync_testtype_t test,
                       std::chrono::milliseconds value) {
    const xcb_sync_create_alarm_value_list_t values{
        .counter = counter,
        .valueType = XCB_SYNC_VALUETYPE_ABSOLUTE,
        .value = wide(value.count()),
        .testType = test,
        .delta = wide(0), // stays where it is, for the next time
        .events = 1,
    };
    xcb_sync_create_alarm_aux(connection().xcb(), alarm,
                              XCB_SYNC_CA_COUNTER | XCB_SYNC_CA_VALUE_TYPE | XCB_SYNC_CA_VALUE |
                                  XCB_SYNC_CA_TEST_TYPE | XCB_SYNC_CA_DELTA | XCB_SYNC_CA_EVENTS,
                              &values);
}

void X11IdleAlarm::handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) {
    if (kind != m_firstEvent + XCB_SYNC_ALARM_NOTIFY) {
        return;
    }
    const auto &notify = eventAs<xcb_sync_alarm_notify_event_t>(event);
    if (notify.alarm == m_becameQuiet) {
        m_isQuiet = true;
    } else if (notify.alarm == m_becameBusy) {
        m_isQuiet = false;
    }
}

} // namespace zeph
