// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/DesktopEntryParser.h"

#include <QDateTime>

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

/// The applications installed for the user, from their desktop entries. Read at the first
/// question, and again when a question finds no answer and something was installed since.
class DesktopEntries {
public:
    /// `dataDirectories`: the user's own first, as in XDG_DATA_HOME and XDG_DATA_DIRS.
    DesktopEntries(QStringList dataDirectories, const QString &locale);

    /// The application that a window belongs to, null when none matches. Valid until the next
    /// question.
    const InstalledApplication *find(const ApplicationHints &hints);

private:
    using Applications = std::vector<InstalledApplication>;
    using Index = std::multimap<QString, std::size_t>;

    bool isOutdated() const;
    void build();
    void readDirectory(const QString &directory);
    void readFile(const QString &path, const QString &identifier);
    void indexAll();
    const InstalledApplication *match(const ApplicationHints &hints) const;
    const InstalledApplication *lookUp(const Index &index, const QString &key) const;

    QStringList m_directories;
    QStringList m_locales;
    bool m_isBuilt = false;
    std::map<QString, QDateTime> m_watched; // directories and when they changed last
    Applications m_applications;            // in order of rank
    std::map<QString, std::size_t> m_byIdentifier;
    Index m_byLowerIdentifier;
    Index m_byWindowClass;
    Index m_byProgram;
};

} // namespace zeph
