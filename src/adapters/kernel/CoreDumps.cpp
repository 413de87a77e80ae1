// SPDX-License-Identifier: MIT
#include "adapters/kernel/CoreDumps.h"

#include <QFile>

namespace zeph {

void leaveMemoryOutOfCoreDumps() {
    // Of the kinds of mappings in core(5) the ELF headers alone.
    QFile filter(QStringLiteral("/proc/self/coredump_filter"));
    if (filter.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        filter.write("0x10");
    }
}

} // namespace zeph
