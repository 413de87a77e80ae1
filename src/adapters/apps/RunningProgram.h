// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zeph {

/// The file name of the program that a process of this user runs; empty when that can't be seen.
QString programOfProcess(qint64 process);

} // namespace zeph
