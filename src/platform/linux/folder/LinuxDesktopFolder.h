// SPDX-License-Identifier: MIT
#pragma once

#include "platform/DesktopFolder.h"

#include <memory>

namespace zeph {

class RunLoop;
class TaskExecutor;

/// Lists the Desktop in a task, one at a time: a folder that never answers holds up nothing but
/// its own thread. What was listed is handed out and not kept, since thousands of names would be.
/// Main thread only; `runLoop` has to outlive the tasks of `executor`.
class LinuxDesktopFolder : public DesktopFolder {
public:
    /// Lists the folder at a path, away from the main thread.
    using Lister = std::function<std::optional<std::vector<FolderEntry>>(const QByteArray &path)>;

    /// `url` is what findDesktopFolder answers, `lister` is listFolder.
    LinuxDesktopFolder(std::optional<QByteArray> url, TaskExecutor &executor, RunLoop &runLoop,
                       Lister lister);

    std::optional<QByteArray> url() const override { return m_url; }
    std::optional<std::vector<FolderEntry>> entries(const QByteArray &url) override;
    void setEntriesHandler(std::function<void()> handler) override;

private:
    using Listing = std::optional<std::vector<FolderEntry>>;

    void list(const QByteArray &url);
    void take(const QByteArray &url, Listing listing);

    std::optional<QByteArray> m_url;
    TaskExecutor &m_executor;
    RunLoop &m_runLoop;
    Lister m_lister;
    std::function<void()> m_handler;
    QByteArray m_listedUrl;
    Listing m_listing;
    bool m_isListing = false;
    bool m_isTelling = false;
    std::shared_ptr<LinuxDesktopFolder *> m_self; // tasks hold it weakly: they may end after this
};

} // namespace zeph
