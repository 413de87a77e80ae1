// SPDX-License-Identifier: MIT
#pragma once

#include "history/Database.h"

namespace zeph {

/// What became of opening the history.
struct OpenHistory {
    std::unique_ptr<Database> database; ///< null when the file could not be opened
    bool hasTables = false;
};

/// Where the history lies in `folder`.
QString historyPath(const QString &folder);

/// Opens "zeph.sqlite" in `folder`, which is made when missing (0700; the file is 0600), and
/// creates the tables. Blocks for some milliseconds, on any thread.
OpenHistory openHistory(const QString &folder);

} // namespace zeph
