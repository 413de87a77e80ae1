// SPDX-License-Identifier: MIT
#include "platform/linux/proc/FileDescriptor.h"

#include <unistd.h>

namespace zeph {

void FileDescriptor::reset(int number) {
    if (m_number >= 0) {
        ::close(m_number);
    }
    m_number = number;
}

} // namespace zeph
