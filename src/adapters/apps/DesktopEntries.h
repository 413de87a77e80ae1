// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/apps/ApplicationIndex.h"
#include "base/Background.h"
#include "base/ChangePublisher.h"

#include <functional>
#include <memory>
#include <vector>

namespace zeph {

/// The applications installed for the user. Read away from the main thread, at the start and
/// whenever one is installed, removed or edited. Main thread only.
class DesktopEntries {
public:
    using Found = std::function<void(const InstalledApplication *application)>;

    /// `dataDirectories`: the user's own first, as in XDG_DATA_HOME and XDG_DATA_DIRS; `locale`
    /// such as "de_DE".
    DesktopEntries(QStringList dataDirectories, QString locale, Background background);

    /// Tells `found` the application that a window belongs to, null when none matches: within the
    /// call, or later when that is not known before the applications are read.
    void find(const ApplicationHints &hints, const Found &found);

    /// Calls `handler` each time that other answers may have become right.
    [[nodiscard]] Subscription subscribe(std::function<void()> handler);

private:
    struct Question {
        ApplicationHints hints;
        Found found;
    };

    void read();
    void adopt(std::unique_ptr<ApplicationIndex> index);

    QStringList m_directories;
    QString m_locale;
    Background m_background;
    std::unique_ptr<ApplicationIndex> m_index; // null until first read
    bool m_isReading = false;
    std::vector<Question> m_waiting;
    ChangePublisher m_changes;
    WorkOwner m_owner;
};

} // namespace zeph
