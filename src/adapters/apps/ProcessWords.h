// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/apps/ApplicationIndex.h"

#include <QByteArray>
#include <QStringList>

namespace zeph {

/// What the kernel tells of a process that a window belongs to.
struct ProcessWords {
    qint64 number = 0;
    QString program;       ///< file name of what it runs
    QStringList arguments; ///< with the name that it was called by
    QByteArray groups;     ///< the content of its file "cgroup"
};

/// Reads them; empty where they can't be seen.
ProcessWords wordsOfProcess(qint64 process);

/// What they tell of the application: of an interpreter the script that it runs, and the desktop
/// entry that the desktop started this very process for, by the name of its unit of systemd. What
/// was started from within, as from a terminal, has another number than the unit.
ApplicationHints hintsIn(const ProcessWords &words);

} // namespace zeph
