// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/icons/DesktopIcons.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace zeph {

/// Where the desktop's program keeps the arrangement of its icons.
struct IconStore {
    enum class Kind { xfdesktop, caja, nemo, pcmanfm, extension, plasma };

    /// The folders of the user, without a slash at the end.
    struct Folders {
        QString config;
        QString data;
        QByteArray desktop; ///< empty for a user without one
    };

    Kind kind = Kind::xfdesktop;
    Folders folders = {};

    /// The set of settings that pcmanfm runs with; may wait, and is asked on any thread. Without
    /// one it is that of LXDE.
    std::function<QString()> profile = {};

    /// What a script prints in Plasma's shell, absent where that refuses it or does not run; may
    /// wait, and is asked on any thread.
    std::function<std::optional<QString>(const QString &script)> evaluate = {};

    /// Whether the icons lie above a desktop window of ours, which elsewhere covers them.
    bool areAboveDesktopWindows() const { return kind == Kind::extension; }

    /// The name on the session bus of the program that `evaluate` asks; empty where the arrangement
    /// is read from files.
    QString service() const;

    /// Folders, in which something happens, and files that change when icons come, go or move, or
    /// what their program shows does.
    QStringList watchedPaths() const;

    /// The icons as they are now. Where the arrangement can't be read they count as laid out by
    /// the program. Blocks for as long as the disk does, and for the program that tells of files;
    /// callable from any thread.
    DesktopIcons read() const;
};

/// That of the desktop in XDG_CURRENT_DESKTOP; absent for those whose icons we never lie beneath.
std::optional<IconStore::Kind> iconStoreKindFor(const QString &currentDesktop);

} // namespace zeph
