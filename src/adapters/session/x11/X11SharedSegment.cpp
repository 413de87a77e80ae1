// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11SharedSegment.h"

#include "adapters/session/x11/X11Connection.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <utility>

namespace zeph {

namespace {

// Attaching by file descriptor came with version 1.2.
bool takesDescriptors(X11Connection &connection) {
    if (!connection.isLocal() || !connection.extension(X11Extension::shm)) {
        return false;
    }
    const X11Reply<xcb_shm_query_version_reply_t> version(xcb_shm_query_version_reply(
        connection.xcb(), xcb_shm_query_version(connection.xcb()), nullptr));
    return version &&
           std::pair<int, int>(version->major_version, version->minor_version) >= std::pair(1, 2);
}

// A file in memory of fixed size, or -1. The server trusts the size, so it is sealed.
int makeMemoryFile(std::size_t bytes) {
    const int file = memfd_create("tavi-frame", MFD_CLOEXEC | MFD_ALLOW_SEALING);
    if (file < 0) {
        return -1;
    }
    if (ftruncate(file, static_cast<off_t>(bytes)) != 0 ||
        fcntl(file, F_ADD_SEALS, F_SEAL_SHRINK) != 0) {
        close(file);
        return -1;
    }
    return file;
}

} // namespace

std::optional<X11SharedSegment> X11SharedSegment::create(X11Connection &connection,
                                                         std::size_t bytes) {
    if (bytes == 0 || !takesDescriptors(connection)) {
        return std::nullopt;
    }
    const int file = makeMemoryFile(bytes);
    if (file < 0) {
        return std::nullopt;
    }
    void *memory = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    if (memory == MAP_FAILED) { // NOLINT(performance-no-int-to-ptr): the system's own macro
        close(file);
        return std::nullopt;
    }
    const xcb_shm_seg_t number = xcb_generate_id(connection.xcb());
    const auto attach = xcb_shm_attach_fd_checked(connection.xcb(), number, file, 1);
    const X11Reply<xcb_generic_error_t> refusal(xcb_request_check(connection.xcb(), attach));
    if (refusal) {
        munmap(memory, bytes);
        return std::nullopt;
    }
    return X11SharedSegment(connection, static_cast<unsigned char *>(memory), bytes, number);
}

X11SharedSegment::X11SharedSegment(X11Connection &connection, unsigned char *data,
                                   std::size_t bytes, xcb_shm_seg_t number)
    : m_connection(&connection), m_data(data), m_bytes(bytes), m_number(number) {}

X11SharedSegment::X11SharedSegment(X11SharedSegment &&other) noexcept
    : m_connection(other.m_connection),
      m_data(std::exchange(other.m_data, nullptr)),
      m_bytes(other.m_bytes),
      m_number(other.m_number) {}

X11SharedSegment::~X11SharedSegment() {
    if (m_data) {
        xcb_shm_detach(m_connection->xcb(), m_number);
        munmap(m_data, m_bytes);
    }
}

} // namespace zeph
