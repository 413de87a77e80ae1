// SPDX-License-Identifier: MIT
#include "adapters/storage/UserDirs.h"

#include "adapters/storage/SmallFile.h"

#include <QByteArrayView>
#include <QList>

namespace zeph {

namespace {

constexpr qsizetype longestPath = 4095; // what the kernel takes
constexpr qint64 largestFile = 65'536;

/// Takes `word` and the blanks around it off the front of `line`; false when it isn't there.
bool take(QByteArrayView &line, QByteArrayView word) {
    line = line.trimmed();
    if (!line.startsWith(word)) {
        return false;
    }
    line = line.sliced(word.size()).trimmed();
    return true;
}

/// One slash between names and none at the end; "/" for the root.
QByteArray tidied(const QByteArray &path) {
    QByteArray result;
    for (const char letter : path) {
        if (letter != '/' || !result.endsWith('/')) {
            result += letter;
        }
    }
    if (result.size() > 1 && result.endsWith('/')) {
        result.chop(1);
    }
    return result;
}

/// The text up to the closing quote, as a shell would read it; absent when there is no such quote.
std::optional<QByteArray> unquoted(QByteArrayView text) {
    QByteArray result;
    for (qsizetype index = 0; index < text.size(); ++index) {
        if (text[index] == '"') {
            return result;
        }
        if (text[index] == '\\' && index + 1 < text.size()) {
            ++index;
        }
        result += text[index];
    }
    return std::nullopt;
}

/// The folder that a line names; absent unless it is one that names the Desktop.
std::optional<QByteArray> folderIn(QByteArrayView line, const QByteArray &home) {
    if (!take(line, "XDG_DESKTOP_DIR") || !take(line, "=") || !line.startsWith('"')) {
        return std::nullopt;
    }
    line = line.sliced(1);
    const bool isOfHome = line.startsWith("$HOME/") || line.startsWith("$HOME\"");
    if (isOfHome) {
        line = line.sliced(5);
    } else if (!line.startsWith('/')) {
        return std::nullopt;
    }
    const auto path = unquoted(line);
    if (!path || (isOfHome && home.isEmpty()) || path->contains('\0')) {
        return std::nullopt;
    }
    const QByteArray folder = tidied(isOfHome ? home + *path : *path);
    return folder.size() <= longestPath ? std::optional(folder) : std::nullopt;
}

} // namespace

std::optional<QByteArray> desktopFolderIn(const QByteArray &userDirs, const QByteArray &home) {
    std::optional<QByteArray> folder;
    if (!home.isEmpty()) {
        folder = tidied(home + "/Desktop");
    }
    for (const QByteArray &line : userDirs.split('\n')) {
        if (const auto named = folderIn(line, home)) {
            folder = named;
        }
    }
    return !folder || *folder == tidied(home) ? std::nullopt : folder;
}

std::optional<QByteArray> findDesktopFolder(const QByteArray &configFolder,
                                            const QByteArray &home) {
    const auto file = readSmallFile(configFolder + "/user-dirs.dirs", largestFile);
    return desktopFolderIn(file.value_or(QByteArray()), home);
}

} // namespace zeph
