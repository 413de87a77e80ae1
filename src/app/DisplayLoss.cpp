// SPDX-License-Identifier: MIT
#include "app/DisplayLoss.h"

#include "base/Log.h"

#include <QByteArray>
#include <QFile>

#include <linux/close_range.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr std::chrono::seconds kShortestStay{10};

constexpr const char *kMark = "TAVI_LOST_ITS_DISPLAY";
const QString kOwnProgram = u"/proc/self/exe"_s;

bool takeMark() {
    const bool isThere = qEnvironmentVariableIsSet(kMark);
    qunsetenv(kMark);
    return isThere;
}

/// What has no mark of its own would stay open in the next run.
void closeDescriptorsOnStart() {
    constexpr unsigned firstAfterOutput = 3;
    syscall(SYS_close_range, firstAfterOutput, ~0U, CLOSE_RANGE_CLOEXEC);
}

} // namespace

AfterLoss afterLoss(std::optional<std::chrono::milliseconds> sinceReturn) {
    return sinceReturn && *sinceReturn < kShortestStay ? AfterLoss::endsForGood
                                                       : AfterLoss::startsAnew;
}

DisplayLoss::DisplayLoss(char **arguments, std::function<Clock::time_point()> now)
    : m_arguments(arguments), m_now(std::move(now)), m_isReturn(takeMark()), m_start(m_now()) {}

void DisplayLoss::note() {
    const auto stay = std::chrono::duration_cast<std::chrono::milliseconds>(m_now() - m_start);
    m_isToStartAnew =
        afterLoss(m_isReturn ? std::optional(stay) : std::nullopt) == AfterLoss::startsAnew;
    qCInfo(logSession, "the display is gone%s", m_isToStartAnew ? ", and is waited for" : "");
}

void DisplayLoss::startAnewIfLost(bool isToldToEnd) const {
    if (!m_isToStartAnew || isToldToEnd) {
        return;
    }
    std::fflush(nullptr);
    qputenv(kMark, "1");
    closeDescriptorsOnStart();
    std::signal(SIGPIPE, SIG_DFL); // what is ignored would be so in the next run's programs
    // By its path, after which the process is called; the other one is there even where the file
    // was replaced.
    const QByteArray path = QFile::encodeName(QFile::symLinkTarget(kOwnProgram));
    execv(path.constData(), m_arguments);
    execv(QFile::encodeName(kOwnProgram).constData(), m_arguments);
    qunsetenv(kMark);
}

} // namespace zeph
