// SPDX-License-Identifier: MIT
#include "adapters/kernel/FileDescriptor.h"

#include <unistd.h>

namespace zeph {

void FileDescriptor::reset(int number) {
    if (m_number >= 0) {
        ::close(m_number);
    }
    m_number = number;
}

} // namespace zeph
