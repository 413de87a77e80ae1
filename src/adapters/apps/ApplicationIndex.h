// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/apps/DesktopEntry.h"
#include "adapters/apps/FolderMonitor.h"

#include <QStringList>

#include <map>
#include <vector>

namespace zeph {

/// What a window tells of the application that it belongs to; empty where it tells nothing.
struct ApplicationHints {
    QString desktopFile;      ///< name or path of its desktop entry
    QString gtkApplicationId; ///< such as "org.example.Editor"
    QString windowClass;
    QString windowInstance;
    QString program; ///< file name of the running program
};

/// An installed application.
struct InstalledApplication {
    QString identifier; ///< the desktop-entry id without ".desktop"
    QString path;       ///< of the desktop entry
    DesktopEntry entry;
};

/// The applications that are installed, as their desktop entries tell at the time of its making.
/// Once made it may be read by any thread.
class ApplicationIndex {
public:
    /// `dataDirectories`: the user's own first, as in XDG_DATA_HOME and XDG_DATA_DIRS. Reads every
    /// entry, which takes some 30 ms for 500 of them.
    ApplicationIndex(const QStringList &dataDirectories, const QString &locale);

    /// The application that a window belongs to, null when none matches.
    const InstalledApplication *match(const ApplicationHints &hints) const;

    /// Calls `handler` once, as soon as something was installed, removed or edited since the
    /// making. Main thread only.
    void whenOutdated(std::function<void()> handler) { m_monitor.whenChanged(std::move(handler)); }

private:
    using Index = std::multimap<QString, std::size_t>;

    void readDirectory(const QString &directory, const QString &locale);
    void readFile(const QString &path, const QString &identifier, const QString &locale);
    void indexAll();
    const InstalledApplication *lookUp(const Index &index, const QString &key) const;

    FolderMonitor m_monitor;
    std::vector<InstalledApplication> m_applications; // in order of rank
    std::map<QString, std::size_t> m_byIdentifier;
    Index m_byLowerIdentifier;
    Index m_byWindowClass;
    Index m_byProgram;
};

} // namespace zeph
