// SPDX-License-Identifier: MIT
#include "adapters/session/wayland/MemoryFile.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace zeph {

namespace {

// By the system call, which is a good deal faster than touching each new page.
bool writeAll(int file, const unsigned char *bytes, std::size_t size) {
    std::size_t written = 0;
    while (written < size) {
        const ssize_t count =
            pwrite(file, bytes + written, size - written, static_cast<off_t>(written));
        if (count > 0) {
            written += static_cast<std::size_t>(count);
        } else if (count == 0 || errno != EINTR) {
            return false;
        }
    }
    return true;
}

} // namespace

std::unique_ptr<MemoryFile> MemoryFile::create(std::size_t size, const unsigned char *copied) {
    const int file = memfd_create("tavi-frame", MFD_CLOEXEC | MFD_ALLOW_SEALING);
    if (file < 0) {
        return nullptr;
    }
    // The other side trusts the size, so it is sealed.
    if (ftruncate(file, static_cast<off_t>(size)) == 0 &&
        fcntl(file, F_ADD_SEALS, F_SEAL_SHRINK) == 0 && (!copied || writeAll(file, copied, size))) {
        if (auto view = MemoryView::map(file, size, MemoryView::Writing::shared)) {
            return std::unique_ptr<MemoryFile>(new MemoryFile(file, std::move(view), size));
        }
    }
    close(file);
    return nullptr;
}

MemoryFile::MemoryFile(int descriptor, std::unique_ptr<MemoryView> view, std::size_t size)
    : m_descriptor(descriptor), m_view(std::move(view)), m_size(size) {}

MemoryFile::~MemoryFile() {
    close(m_descriptor);
}

std::unique_ptr<MemoryView> MemoryFile::draft() const {
    return MemoryView::map(m_descriptor, m_size, MemoryView::Writing::kept);
}

} // namespace zeph
