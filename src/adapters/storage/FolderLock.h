// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/kernel/FileDescriptor.h"

#include <QString>

#include <chrono>

namespace zeph {

/// Keeps a data folder for one process, by a lock on the file "zeph.lock" in it, which the system
/// lets go of with the process, however that ends.
class FolderLock {
public:
    /// Makes `folder` when missing and locks it. Where another process has it, tries for as long as
    /// `patience`, blocking: that one may just be ending.
    FolderLock(const QString &folder, std::chrono::milliseconds patience);

    /// Whether another process has the folder. False too where the system keeps no locks, so that
    /// nothing can be told.
    bool isHeldByAnother() const { return m_isHeldByAnother; }

private:
    FileDescriptor m_file; // holds the lock
    bool m_isHeldByAnother = false;
};

} // namespace zeph
