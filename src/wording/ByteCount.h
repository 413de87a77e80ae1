// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zeph {

/// `bytes` as a file manager shows a size, in powers of 1000: "Zero KB", "1 byte", "512 bytes",
/// "2 KB", "1.5 MB", "12.34 GB". Halves round away from zero; a count that rounds up to 1000
/// takes the next unit.
QString byteCountFile(qint64 bytes);

/// `bytes` in powers of 1024 and in no other units than KB, MB and GB. What rounds to no whole
/// KB, so less than 512 bytes, is "Zero KB" like nothing at all; more than GB stays in GB.
QString byteCountRate(qint64 bytes);

} // namespace zeph
