// SPDX-License-Identifier: MIT
#include "adapters/apps/ApplicationIndex.h"

#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr qint64 kLargestFile = qint64{512} * 1024;
constexpr std::size_t kMostFiles = 10000;

const QString kSuffix = u".desktop"_s;
const QString kFolder = u"/applications"_s;

/// The folders that hold entries, each with all below it.
QStringList foldersOf(const QStringList &dataDirectories) {
    QStringList folders;
    for (const QString &directory : dataDirectories) {
        folders.append(directory + kFolder);
        QDirIterator below(folders.last(), QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks,
                           QDirIterator::Subdirectories);
        while (below.hasNext()) {
            folders.append(below.next());
        }
    }
    return folders;
}

QString withoutSuffix(const QString &name) {
    return name.endsWith(kSuffix) ? name.chopped(kSuffix.size()) : name;
}

QString lastPart(const QString &dotted) {
    return dotted.sliced(dotted.lastIndexOf(u'.') + 1);
}

} // namespace

ApplicationIndex::ApplicationIndex(const QStringList &dataDirectories, const QString &locale)
    : m_monitor(foldersOf(dataDirectories)) {
    for (const QString &directory : dataDirectories) {
        readDirectory(directory + kFolder, locale);
    }
    indexAll();
}

void ApplicationIndex::readDirectory(const QString &directory, const QString &locale) {
    // Links to directories are not followed: they can lead round in a circle.
    QDirIterator files(directory, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext() && m_applications.size() < kMostFiles) {
        const QString path = files.next();
        if (path.endsWith(kSuffix)) {
            QString identifier = withoutSuffix(path.sliced(directory.size() + 1));
            readFile(path, identifier.replace(u'/', u'-'), locale);
        }
    }
}

void ApplicationIndex::readFile(const QString &path, const QString &identifier,
                                const QString &locale) {
    if (m_byIdentifier.contains(identifier)) {
        return; // a directory of higher rank has it
    }
    QFile file(path);
    // Opening a named pipe would wait for its writer.
    if (!QFileInfo(path).isFile() || file.size() > kLargestFile ||
        !file.open(QIODevice::ReadOnly)) {
        return;
    }
    auto entry = parseDesktopEntry(file.read(kLargestFile), locale);
    if (entry) {
        m_byIdentifier[identifier] = m_applications.size();
        m_applications.push_back({identifier, path, *std::move(entry)});
    }
}

void ApplicationIndex::indexAll() {
    // Several entries may start one program; what menus show stands for it before helpers do.
    for (const bool listed : {true, false}) {
        for (std::size_t i = 0; i < m_applications.size(); ++i) {
            const auto &[identifier, path, entry] = m_applications[i];
            if (entry.isHidden || entry.isListed != listed) {
                continue;
            }
            m_byLowerIdentifier.emplace(identifier.toLower(), i);
            m_byWindowClass.emplace(entry.startupWmClass, i);
            m_byProgram.emplace(entry.program, i);
        }
    }
}

const InstalledApplication *ApplicationIndex::match(const ApplicationHints &hints) const {
    const QString desktopFile = withoutSuffix(QFileInfo(hints.desktopFile).fileName());
    for (const QString &identifier : {desktopFile, hints.gtkApplicationId}) {
        const auto found = m_byIdentifier.find(identifier);
        if (found != m_byIdentifier.end() && !m_applications[found->second].entry.isHidden) {
            return &m_applications[found->second];
        }
    }
    const std::pair<const Index &, QString> attempts[] = {
        {m_byWindowClass, hints.windowClass},
        {m_byWindowClass, hints.windowInstance},
        {m_byLowerIdentifier, hints.windowClass.toLower()},
        {m_byLowerIdentifier, hints.windowInstance.toLower()},
        {m_byLowerIdentifier, lastPart(hints.gtkApplicationId).toLower()},
        {m_byProgram, hints.program},
    };
    for (const auto &[index, key] : attempts) {
        if (const auto *found = lookUp(index, key)) {
            return found;
        }
    }
    return nullptr;
}

const InstalledApplication *ApplicationIndex::lookUp(const Index &index, const QString &key) const {
    const auto found = key.isEmpty() ? index.end() : index.lower_bound(key);
    return found != index.end() && found->first == key ? &m_applications[found->second] : nullptr;
}

} // namespace zeph
