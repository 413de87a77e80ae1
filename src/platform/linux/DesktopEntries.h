// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/ApplicationIndex.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace zeph {

class RunLoop;
class TaskExecutor;

/// The applications installed for the user. Read at the first question, and again, in a task, when
/// a question finds no answer and something was installed since. Main thread only.
class DesktopEntries {
public:
    using Found = std::function<void(const InstalledApplication *application)>;

    /// `dataDirectories`: the user's own first, as in XDG_DATA_HOME and XDG_DATA_DIRS. `runLoop`
    /// outlives the executor's tasks.
    DesktopEntries(QStringList dataDirectories, const QString &locale, TaskExecutor &executor,
                   RunLoop &runLoop);

    /// Tells `found` the application that a window belongs to, null when none matches: within the
    /// call, or later when the applications have to be read anew first.
    void find(const ApplicationHints &hints, const Found &found);

private:
    struct Question {
        ApplicationHints hints;
        Found found;
    };

    void readAnew();
    void adopt(std::shared_ptr<const ApplicationIndex> index);

    QStringList m_directories;
    QStringList m_locales;
    TaskExecutor &m_executor;
    RunLoop &m_runLoop;
    std::shared_ptr<const ApplicationIndex> m_index;
    std::vector<Question> m_waiting;
    std::shared_ptr<DesktopEntries *> m_self; // lets a task see that this is gone
};

} // namespace zeph
