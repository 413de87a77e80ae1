// SPDX-License-Identifier: MIT
#pragma once

#include "platform/DesktopFolder.h"

namespace zeph {

/// The visible entries of the folder at `path`, in the system's order; absent when it can't be
/// read to its end. Hidden are the names that begin with a dot and those that the folder's own
/// ".hidden" file lists, a line each. No other entry is followed, opened or entered, and no folder
/// among them is asked for anything: it can be a mount that hangs. May block for as long as the
/// disk does; callable from any thread.
std::optional<std::vector<FolderEntry>> listFolder(const QByteArray &path);

} // namespace zeph
