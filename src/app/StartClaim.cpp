// SPDX-License-Identifier: MIT
#include "app/StartClaim.h"

#include "app/RequestInbox.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

#include <functional>

namespace zeph {

/// What the bus said of the name, and who is told when it does.
struct StartClaim::Answer {
    std::optional<InstanceRole> role;
    std::function<void()> came;
};

StartClaim::StartClaim(SingleInstance &instance, const RequestInbox &requests, Patience patience)
    : m_instance(instance),
      m_requests(requests),
      m_patience(patience),
      m_answer(std::make_shared<Answer>()) {}

bool StartClaim::isToRun() {
    claim();
    if (m_answer->role == InstanceRole::secondary) {
        settle();
    }
    if (m_answer->role == InstanceRole::primary) {
        awaitRequest();
    }
    return m_answer->role != InstanceRole::secondary && !m_requests.isStartedToQuit();
}

void StartClaim::claim() {
    QEventLoop waiting;
    m_answer->came = [&waiting] { waiting.quit(); };
    m_instance.claim([answer = m_answer](InstanceRole role) {
        answer->role = role;
        answer->came();
    });
    QTimer patience;
    QObject::connect(&patience, &QTimer::timeout, &waiting, &QEventLoop::quit);
    patience.start(m_patience.role);
    waiting.exec();
    m_answer->came = [&instance = m_instance, answer = std::weak_ptr(m_answer)] {
        const auto late = answer.lock();
        if (late && late->role == InstanceRole::secondary) {
            instance.activateOwner([](bool) { QCoreApplication::quit(); });
        }
    };
}

void StartClaim::settle() {
    QEventLoop waiting;
    m_instance.activateOrSucceedOwner([&](InstanceRole settled) {
        m_answer->role = settled;
        waiting.quit();
    });
    waiting.exec();
}

void StartClaim::awaitRequest() const {
    const QDeadlineTimer deadline(m_patience.request);
    QTimer end;
    end.setSingleShot(true);
    end.start(m_patience.request); // which ends the last wait
    while (!m_requests.isStartKnown() && !deadline.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
}

bool StartClaim::callRunning() {
    m_answer->came = [] {}; // this is the call
    QEventLoop waiting;
    bool isCalled = false;
    m_instance.activateOwner([&](bool isAnswered) {
        isCalled = isAnswered;
        waiting.quit();
    });
    waiting.exec();
    // A name that came to this program meanwhile leads nowhere else.
    return isCalled && m_answer->role != InstanceRole::primary;
}

} // namespace zeph
