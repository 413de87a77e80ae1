// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

namespace zeph {

struct GioLibrary;

/// Notices that something in one of several folders was added, removed, renamed or edited, or that
/// a file was, of whose folder nothing else matters. It
/// hears of it in the main thread's loop, which has to be one over GLib's main context, as the
/// toolkit's own on Linux.
class FolderMonitor {
public:
    /// Notices everything that happens from here on; any thread. None of the folders and files need
    /// exist yet.
    explicit FolderMonitor(const QStringList &paths);
    /// The same by a library of the caller's, which stays loaded; by none nothing is noticed.
    FolderMonitor(const QStringList &paths, const GioLibrary *gio);
    ~FolderMonitor();
    FolderMonitor(FolderMonitor &&) noexcept;
    FolderMonitor &operator=(FolderMonitor &&) noexcept;

    /// Calls `handler` once: within this call when there was a change already, else at the first
    /// one. Main thread only.
    void whenChanged(std::function<void()> handler);

private:
    struct News;
    struct Watch;

    std::shared_ptr<News> m_news; // shared with notices on their way
    std::vector<std::unique_ptr<Watch>> m_watches;
};

} // namespace zeph
