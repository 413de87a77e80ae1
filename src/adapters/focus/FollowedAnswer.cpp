// SPDX-License-Identifier: MIT
#include "adapters/focus/FollowedAnswer.h"

#include <utility>

namespace zeph {

FollowedAnswer::FollowedAnswer(const QDBusConnection &bus, SwitchQuestion question, Reader reader,
                               std::function<void()> news, int timeoutMilliseconds)
    : m_question(std::move(question)),
      m_reader(std::move(reader)),
      m_news(std::move(news)),
      m_timeoutMilliseconds(timeoutMilliseconds),
      m_service(bus, m_question.service, [this] { ownerChanged(); }) {}

void FollowedAnswer::set(std::optional<bool> value) {
    if (std::exchange(m_value, value) != value) {
        m_news();
    }
}

void FollowedAnswer::ask() {
    if (m_isAsking) {
        m_isStale = true;
        return;
    }
    m_isAsking = true;
    m_isStale = false;
    m_service.ask(m_question.path, m_question.interface, m_question.method, m_question.arguments,
                  m_timeoutMilliseconds, [this](const QDBusMessage &answer) { answered(answer); });
}

void FollowedAnswer::ownerChanged() {
    m_isAsking = false;
    if (m_service.isThere()) {
        ask();
    }
    set(std::nullopt);
}

void FollowedAnswer::answered(const QDBusMessage &answer) {
    m_isAsking = false;
    if (m_isStale) {
        ask();
    }
    set(m_reader(answer));
}

} // namespace zeph
