// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Port.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <optional>

namespace zeph {

/// One visible entry of a folder. A symbolic link is told of by itself, never by what it leads to.
struct FolderEntry {
    QString name;                    ///< what is no text in it shows as replacement characters
    std::optional<bool> isDirectory; ///< absent when the system refuses to tell
    std::optional<qint64> fileSize;  ///< bytes; absent as well for what has no size of its own

    bool operator==(const FolderEntry &) const = default;
};

/// The user's Desktop folder.
class DesktopFolder : public Port {
public:
    using Visitor = std::function<void(const FolderEntry &)>;

    /// Its path in the bytes of the file system; absent for a user who has none.
    virtual std::optional<QByteArray> url() const = 0;

    /// Hands every visible entry of the folder at `url` to `visit`, flat and in the system's order.
    /// False when the folder can't be read to its end. Blocks for as long as the disk does, which
    /// can be a network's; callable from any thread.
    virtual bool visitEntries(const QByteArray &url, const Visitor &visit) const = 0;
};

} // namespace zeph
