// SPDX-License-Identifier: MIT
#pragma once

#include "base/WorkOwner.h"

#include <QFileSystemWatcher>
#include <QString>

#include <functional>

namespace zeph {

class RunLoop;

/// Tells when a file was removed for good. A file that others take the place of, as with an
/// update, is not. Main thread only.
class RemovalWatch {
public:
    /// Calls `removed` once.
    RemovalWatch(QString path, RunLoop &runLoop, std::function<void()> removed);

private:
    void look();

    QString m_path;
    RunLoop &m_runLoop;
    std::function<void()> m_removed;
    bool m_isLookDue = false;
    WorkOwner m_work;
    QFileSystemWatcher m_watcher; // last, since it calls back
};

} // namespace zeph
