// SPDX-License-Identifier: MIT
#include "adapters/icons/IconStore.h"

#include "adapters/icons/IconSettings.h"
#include "adapters/icons/ListedIcons.h"
#include "adapters/icons/PcmanfmIcons.h"
#include "adapters/icons/PlasmaIconViews.h"
#include "adapters/icons/XfdesktopIcons.h"
#include "adapters/storage/LinuxDesktopFolder.h"
#include "adapters/storage/SmallFile.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

// Several thousand icons; the programs' own files are a few kilobytes.
constexpr qint64 kMostBytes = 1 << 20;

// A file system that hangs must not hold its thread for ever.
constexpr int kListPatienceMilliseconds = 10'000;

// Those that the programs may show beside the files, where they do not tell: the computer or file
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
    return config + u"/pcmanfm"_s;
}

/// Those of all profiles: which one the program runs with is not known before it was asked.
QStringList pcmanfmFolders(const QString &config) {
    const QDir folder(pcmanfmFolder(config));
    QStringList folders{folder.path()};
    for (const QString &profile : folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        folders.append(folder.filePath(profile));
    }
    return folders;
}

DesktopIcons readPcmanfm(const IconStore &store) {
    const QString profile = store.profile ? store.profile() : u"LXDE"_s;
    const QString items = u"/%1/desktop-items-0.conf"_s.arg(profile);
    return pcmanfmIconsIn(textOf(pcmanfmFolder(store.folders.config) + items),
                          shownEntries(store.folders.desktop));
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

/// What a tool prints; absent when it is not there, fails or does not end. The libraries that know
/// places and settings keep a thread and a connection to the bus for ever, so that it is a process
/// of its own that asks them.
std::optional<QByteArray> outputOf(const QString &program, const QStringList &arguments) {
    QProcess tool;
    tool.setStandardErrorFile(QProcess::nullDevice());
    tool.start(program, arguments, QProcess::ReadOnly);
    if (!tool.waitForFinished(kListPatienceMilliseconds)) {
        tool.kill();
        tool.waitForFinished(kListPatienceMilliseconds);
        return std::nullopt;
    }
    const bool isDone = tool.exitStatus() == QProcess::NormalExit && tool.exitCode() == 0;
    return isDone ? std::optional(tool.readAllStandardOutput()) : std::nullopt;
}

QByteArray settingsOf(const QString &schema) {
    return outputOf(u"gsettings"_s, {u"list-recursively"_s, schema}).value_or(QByteArray());
}

/// The files, with the places that are kept with them.
DesktopIcons readListed(const IconStore::Folders &folders, const QByteArray &attribute,
                        const IconGrid &grid) {
    const auto list =
        folders.desktop.isEmpty()
            ? std::nullopt
            : outputOf(u"gio"_s, {u"list"_s, u"--attributes="_s + QString::fromLatin1(attribute),
                                  QFile::decodeName(folders.desktop)});
    DesktopIcons icons = listedIconsIn(list.value_or(QByteArray()), attribute, grid);
    if (!list) {
        icons.unplaced = shownEntries(folders.desktop);
    }
    return icons;
}

DesktopIcons readFileManager(const IconStore::Folders &folders, const QByteArray &attribute,
                             const QString &schema) {
    DesktopIcons icons = readListed(folders, attribute, cajaGrid());
    icons.unplaced += iconsBesideFilesIn(settingsOf(schema)).value_or(kIconsBesideFiles);
    return icons;
}

/// The shell tells of extensions that a session switched on by itself, too.
DesktopIcons readExtension(const IconStore::Folders &folders) {
    const auto enabled = outputOf(u"gnome-extensions"_s, {u"list"_s, u"--enabled"_s});
    if (!listsIconExtension(enabled.value_or(QByteArray()))) {
        return {};
    }
    const auto settings = extensionIconSettingsIn(settingsOf(u"org.gnome.shell.extensions.ding"_s));
    DesktopIcons icons = readListed(folders, "metadata::nautilus-icon-position", settings.grid);
    icons.unplaced += settings.iconsBesideFiles;
    icons.isFromRight = settings.areLaidOutFromRight;
    return icons;
}

/// The names in a folder that Plasma shows; absent where they can't be told, and for a folder that
/// is none of this machine.
std::optional<QStringList> entriesOf(const QString &address, const QByteArray &desktop) {
    const QUrl url(address);
    const QByteArray path = url.scheme() == u"desktop"_s && url.path() == u"/"_s ? desktop
                            : url.isLocalFile() ? QFile::encodeName(url.toLocalFile())
                                                : QByteArray();
    QStringList names;
    const bool isWhole =
        !path.isEmpty() && LinuxDesktopFolder(path).visitEntries(
                               path, [&names](const FolderEntry &one) { names.append(one.name); });
    return isWhole ? std::optional(names) : std::nullopt;
}

DesktopIcons readPlasma(const IconStore &store) {
    const auto printed = store.evaluate ? store.evaluate(plasmaIconsScript()) : std::nullopt;
    const auto views = plasmaIconViewsIn(printed.value_or(QString()).toUtf8());
    if (!views) {
        return {.cell = plasmaUsualCell(),
                .unplaced = shownEntries(store.folders.desktop),
                .isGuessed = true};
    }
    DesktopIcons icons;
    for (const PlasmaIconView &view : *views) {
        icons.displays.push_back(
            plasmaIconsOf(view, entriesOf(view.folder, store.folders.desktop)));
    }
    return icons;
}

} // namespace

QString IconStore::service() const {
    return kind == Kind::plasma ? u"org.kde.plasmashell"_s : QString();
}

QStringList IconStore::watchedPaths() const {
    QStringList watched;
    switch (kind) {
    case Kind::xfdesktop:
        watched = {xfceFolder(folders.config), xfconfFolder(folders.config)};
        break;
    case Kind::caja:
    case Kind::nemo:
    case Kind::extension:
        watched = {folders.data + u"/gvfs-metadata"_s, folders.config + u"/dconf"_s};
        break;
    case Kind::pcmanfm:
        watched = pcmanfmFolders(folders.config);
        break;
    case Kind::plasma:
        // Whose folder is that of all programs.
        watched = {folders.config + u"/plasma-org.kde.plasma.desktop-appletsrc"_s,
                   folders.config + u"/kactivitymanagerdrc"_s};
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
        return readFileManager(folders, "metadata::caja-icon-position", u"org.mate.caja.desktop"_s);
    case Kind::nemo:
        return readFileManager(folders, "metadata::nemo-icon-position", u"org.nemo.desktop"_s);
    case Kind::pcmanfm:
        return readPcmanfm(*this);
    case Kind::extension:
        return readExtension(folders);
    case Kind::plasma:
        return readPlasma(*this);
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
        if (desktop == u"kde"_s) {
            return IconStore::Kind::plasma;
        }
        if (desktop == u"gnome"_s || desktop == u"unity"_s) {
            return IconStore::Kind::extension;
        }
    }
    return std::nullopt;
}

} // namespace zeph
