// SPDX-License-Identifier: MIT
#pragma once

namespace zeph {

/// From now on a crash of this process leaves none of its own memory, through which the keys of
/// accounts pass, in a core dump; only what was mapped from files. Other than a process that may
/// not be dumped at all, this one can still be looked up by the desktop's portals. Without /proc
/// nothing happens.
void leaveMemoryOutOfCoreDumps();

} // namespace zeph
