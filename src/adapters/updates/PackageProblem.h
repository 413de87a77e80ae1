// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zeph {

/// One sentence on why the package service failed, after the code that it tells; `details` is its
/// own word on it, for codes that say little.
QString packageProblem(uint code, const QString &details);

} // namespace zeph
