// SPDX-License-Identifier: MIT
#include "adapters/apps/OwnApplication.h"

#include "adapters/apps/ApplicationIndex.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const QString kOwnName = u"com.tavi.Tavi"_s;

} // namespace

bool isOwnApplication(const ApplicationHints &hints) {
    // Some desktops hand on small letters alone.
    return hints.desktopFile.compare(kOwnName, Qt::CaseInsensitive) == 0 ||
           hints.windowClass.compare(kOwnName, Qt::CaseInsensitive) == 0;
}

} // namespace zeph
