// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/apps/ApplicationIndex.h"

#include <QByteArray>
#include <QStringList>

namespace zeph {

/// What the kernel tells of a process that a window belongs to.
struct ProcessWords {
    qint64 number = 0;
    QString program;         ///< file name of what it runs
    QStringList arguments;   ///< with the name that it was called by
    QByteArray groups;       ///< the content of its file "cgroup"
    QByteArray sandbox = {}; ///< the content of the file by which Flatpak tells what it runs
};

/// Reads them; empty where they can't be seen. Callable from any thread, and not for the main one:
/// the files of a sandbox may lie anywhere.
ProcessWords wordsOfProcess(qint64 process);

/// What they tell of the application: of an interpreter the script that it runs, and the desktop
/// entry that the desktop started this very process for, by the name of its unit of systemd. What
/// was started from within, as from a terminal, has another number than the unit. In a sandbox of
/// Flatpak its application counts alone. What speaks to a bus for a sandbox tells nothing of
/// itself.
ApplicationHints hintsIn(const ProcessWords &words);

} // namespace zeph
