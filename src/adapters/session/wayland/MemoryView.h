// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>

namespace zeph {

/// A file's bytes in the memory of this process.
class MemoryView {
public:
    /// What becomes of bytes that are written: everyone with the file sees them, or this view
    /// alone.
    enum class Writing { shared, kept };

    /// Null when the system refuses it. The file may be closed before the view.
    static std::unique_ptr<MemoryView> map(int file, std::size_t size, Writing writing);
    ~MemoryView();
    MemoryView(const MemoryView &) = delete;
    MemoryView &operator=(const MemoryView &) = delete;

    unsigned char *data() const { return m_data; }

private:
    MemoryView(unsigned char *data, std::size_t size) : m_data(data), m_size(size) {}

    unsigned char *m_data;
    std::size_t m_size;
};

} // namespace zeph
