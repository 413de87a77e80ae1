// SPDX-License-Identifier: MIT
#pragma once

namespace zeph {

/// Lets the threads of this process share two heaps instead of keeping one each, which none of
/// them gives back. To be called before there is a thread.
void shareHeaps();

/// Gives memory that was used and freed, as by a start, back to the system. Takes about a
/// millisecond.
void returnFreedMemory();

} // namespace zeph
