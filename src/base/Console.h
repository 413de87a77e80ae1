// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstdio>

namespace zeph {

/// Prints `text` as one line on standard output, flushed, so that it survives a crash that follows.
inline void printLine(const QString &text) {
    const QByteArray line = text.toUtf8() + '\n';
    std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stdout);
    std::fflush(stdout);
}

} // namespace zeph
