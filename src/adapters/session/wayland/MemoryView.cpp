// SPDX-License-Identifier: MIT
#include "adapters/session/wayland/MemoryView.h"

#include <sys/mman.h>

namespace zeph {

std::unique_ptr<MemoryView> MemoryView::map(int file, std::size_t size, Writing writing) {
    void *memory = mmap(nullptr, size, PROT_READ | PROT_WRITE,
                        writing == Writing::shared ? MAP_SHARED : MAP_PRIVATE, file, 0);
    if (memory == MAP_FAILED) { // NOLINT(performance-no-int-to-ptr): the system's own macro
        return nullptr;
    }
    return std::unique_ptr<MemoryView>(new MemoryView(static_cast<unsigned char *>(memory), size));
}

MemoryView::~MemoryView() {
    munmap(m_data, m_size);
}

} // namespace zeph
