// SPDX-License-Identifier: MIT
#include "adapters/icons/IconStore.h"

#include "adapters/icons/ListedIcons.h"
#include "adapters/icons/PcmanfmIcons.h"
#include "adapters/icons/XfdesktopIcons.h"
#include "adapters/storage/LinuxDesktopFolder.h"
#include "adapters/storage/SmallFile.h"

#include <QFile>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

// Several thousand icons; the programs' own files are a few kilobytes.
constexpr qint64 kMostBytes = 1 << 20;

// A file system that hangs must not hold its thread for ever.
constexpr int kListPatienceMilliseconds = 10'000;

// Those that the programs show beside the files unless they are told not to: the computer or file
// system, the home and the trash.
constexpr int kIconsBesideFiles = 3;

QByteArray textOf(const QString &path) {
    return readSmallFile(QFile::encodeName(path), kMostBytes).value_or(QByteArray());
}

int shownEntries(const QByteArray &desktop) {
    int count = 0;
    if (!desktop.isEmpty()) {
        LinuxDesktopFolder(desktop).visitEntries(desktop,
                                                 [&count](const FolderEntry &) { ++count; });
    }
    return count;
}

QString xfceFolder(const QString &config) {
    return config + u"/xfce4/desktop"_s;
}
QString xfconfFolder(const QString &config) {
    return config + u"/xfce4/xfconf/xfce-perchannel-xml"_s;
}
QString pcmanfmFolder(const QString &config) {
    return config + u"/pcmanfm/LXDE"_s;
}

DesktopIcons readXfdesktop(const IconStore::Folders &folders) {
    const auto settings =
        xfdesktopSettingsIn(textOf(xfconfFolder(folders.config) + u"/xfce4-desktop.xml"_s));
    DesktopIcons icons = xfdesktopIconsIn(
        textOf(xfceFolder(folders.config) + u"/icons.screen.latest.rc"_s), settings);
    if (settings.areShown && icons.places.empty()) {
        icons.unplaced = shownEntries(folders.desktop) + kIconsBesideFiles;
    }
    return icons;
}

/// What the tool tells of the files and the icons' places; absent when it is not there or does not
/// end. It is a process of its own, since the library that knows the places keeps a thread and a
/// connection to the bus for ever.
std::optional<QByteArray> listOf(const QByteArray &desktop, const QByteArray &attribute) {
    QProcess tool;
    tool.setStandardErrorFile(QProcess::nullDevice());
    tool.start(u"gio"_s,
               {u"list"_s, u"--attributes="_s + QString::fromLatin1(attribute),
                QFile::decodeName(desktop)},
               QProcess::ReadOnly);
    if (!tool.waitForFinished(kListPatienceMilliseconds)) {
        tool.kill();
        tool.waitForFinished(kListPatienceMilliseconds);
        return std::nullopt;
    }
    const bool isDone = tool.exitStatus() == QProcess::NormalExit && tool.exitCode() == 0;
    return isDone ? std::optional(tool.readAllStandardOutput()) : std::nullopt;
}

DesktopIcons readListed(const IconStore::Folders &folders, const QByteArray &attribute) {
    const auto list = folders.desktop.isEmpty() ? std::nullopt : listOf(folders.desktop, attribute);
    DesktopIcons icons = listedIconsIn(list.value_or(QByteArray()), attribute);
    if (!list) {
        icons.unplaced = shownEntries(folders.desktop);
    }
    icons.unplaced += kIconsBesideFiles;
    return icons;
}

} // namespace

QStringList IconStore::watchedFolders() const {
    QStringList watched;
    switch (kind) {
    case Kind::xfdesktop:
        watched = {xfceFolder(folders.config), xfconfFolder(folders.config)};
        break;
    case Kind::caja:
    case Kind::nemo:
        watched = {folders.data + u"/gvfs-metadata"_s};
        break;
    case Kind::pcmanfm:
        watched = {pcmanfmFolder(folders.config)};
        break;
    }
    if (!folders.desktop.isEmpty()) {
        watched.append(QFile::decodeName(folders.desktop));
    }
    return watched;
}

DesktopIcons IconStore::read() const {
    switch (kind) {
    case Kind::xfdesktop:
        return readXfdesktop(folders);
    case Kind::caja:
        return readListed(folders, "metadata::caja-icon-position");
    case Kind::nemo:
        return readListed(folders, "metadata::nemo-icon-position");
    case Kind::pcmanfm:
        return pcmanfmIconsIn(textOf(pcmanfmFolder(folders.config) + u"/desktop-items-0.conf"_s),
                              shownEntries(folders.desktop));
    }
    return {};
}

std::optional<IconStore::Kind> iconStoreKindFor(const QString &currentDesktop) {
    for (const QString &entry : currentDesktop.split(u':')) {
        const QString desktop = entry.trimmed().toLower();
        if (desktop == u"xfce"_s) {
            return IconStore::Kind::xfdesktop;
        }
        if (desktop == u"mate"_s) {
            return IconStore::Kind::caja;
        }
        if (desktop == u"x-cinnamon"_s || desktop == u"cinnamon"_s) {
            return IconStore::Kind::nemo;
        }
        if (desktop == u"lxde"_s) {
            return IconStore::Kind::pcmanfm;
        }
    }
    return std::nullopt;
}

} // namespace zeph
