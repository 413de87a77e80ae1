// SPDX-License-Identifier: MIT
#include "platform/linux/focus/FollowedAnswer.h"

#include "platform/linux/dbus/DBusCalls.h"

#include <QDBusServiceWatcher>

#include <limits>
#include <utility>

namespace zeph {

namespace {

// A desktop that starts or swaps can take longer than the bus library's own limit. Nothing waits
// for the answer, and the bus itself answers for a service that ends.
constexpr int anyTime = std::numeric_limits<int>::max();

} // namespace

FollowedAnswer::FollowedAnswer(QDBusConnection bus, const QDBusMessage &question, Reader reader,
                               std::function<void()> news)
    : m_bus(std::move(bus)),
      m_question(question),
      m_reader(std::move(reader)),
      m_news(std::move(news)) {
    if (!m_bus.isConnected()) {
        return;
    }
    m_serviceWatch = std::make_unique<QDBusServiceWatcher>(
        m_question.service(), m_bus, QDBusServiceWatcher::WatchForOwnerChange);
    QObject::connect(m_serviceWatch.get(), &QDBusServiceWatcher::serviceOwnerChanged, &m_context,
                     [this](const QString &, const QString &, const QString &newOwner) {
                         ownerChanged(!newOwner.isEmpty());
                     });
    ask();
}

FollowedAnswer::~FollowedAnswer() = default;

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
    callAsync(m_bus, m_question, anyTime, &m_context,
              [this, life = m_life](const QDBusMessage &answer) {
                  if (life == m_life) {
                      answered(answer);
                  }
              });
}

void FollowedAnswer::ownerChanged(bool isThere) {
    ++m_life;
    m_isAsking = false;
    m_isStale = false;
    if (isThere) {
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
