// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/wayland/MemoryView.h"

#include <cstddef>
#include <memory>

namespace zeph {

/// Memory that another process can be handed, zero at first. It has no name anywhere: when all are
/// gone that have it, by whatever death, so is it.
class MemoryFile {
public:
    /// Null when the system refuses it. `copied` is as large, and what the memory holds at first.
    static std::unique_ptr<MemoryFile> create(std::size_t size,
                                              const unsigned char *copied = nullptr);
    ~MemoryFile();
    MemoryFile(const MemoryFile &) = delete;
    MemoryFile &operator=(const MemoryFile &) = delete;

    unsigned char *data() const { return m_view->data(); }

    /// The same bytes, where what is written stays unseen by others; null when the system refuses.
    std::unique_ptr<MemoryView> draft() const;

    /// To be handed to the other process; stays owned by this.
    int descriptor() const { return m_descriptor; }

private:
    MemoryFile(int descriptor, std::unique_ptr<MemoryView> view, std::size_t size);

    int m_descriptor;
    std::unique_ptr<MemoryView> m_view;
    std::size_t m_size;
};

} // namespace zeph
