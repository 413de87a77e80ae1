// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zeph {

/// Which version of the program this is.
class UpdateChecker {
public:
    /// The version that was built in.
    static QString currentVersion();

    /// The text for a version that was built in; a build without any is the first one.
    static QString currentVersion(const QString &built);
};

} // namespace zeph
