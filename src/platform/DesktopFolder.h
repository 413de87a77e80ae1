// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Port.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace zeph {

/// One visible entry of a folder. A symbolic link is told of by itself, never by what it leads to.
struct FolderEntry {
    QString name;                    ///< what is no text in it shows as replacement characters
    std::optional<bool> isDirectory; ///< absent when the system refuses to tell
    std::optional<qint64> fileSize;  ///< bytes; absent as well for what has no size of its own

    bool operator==(const FolderEntry &) const = default;
};

/// The user's Desktop folder. Nothing here waits for the disk, which can be a network's. Main
/// thread only.
class DesktopFolder : public Port {
public:
    /// Its path in the bytes of the file system; absent for a user who has none.
    virtual std::optional<QByteArray> url() const = 0;

    /// Hands out what was found since the last question, flat and without hidden entries, in the
    /// system's order, and starts a new listing for the next question. Absent when there is none:
    /// it is still being made, or the folder can't be read.
    virtual std::optional<std::vector<FolderEntry>> entries(const QByteArray &url) = 0;

    /// Called on the main thread when a listing is there to be asked for. A question of the handler
    /// itself starts no new one.
    virtual void setEntriesHandler(std::function<void()> handler) = 0;
};

} // namespace zeph
