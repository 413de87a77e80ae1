// SPDX-License-Identifier: MIT
#include "adapters/kernel/Heap.h"

#include <malloc.h>

namespace zeph {

void shareHeaps() {
    ::mallopt(M_ARENA_MAX, 2);
}

void returnFreedMemory() {
    ::malloc_trim(0);
}

} // namespace zeph
