// SPDX-License-Identifier: MIT
#include "services/simple/DeployStatus.h"

#include "base/Capitalized.h"

#include <algorithm>
#include <array>

namespace zeph::DeployStatus {

using namespace Qt::StringLiterals;

namespace {

struct Known {
    QLatin1StringView state;
    QLatin1StringView icon;
    QStringView text;
};

constexpr std::array known = {
    Known{"READY"_L1, "checkmark.circle"_L1, u"Deployed"},
    Known{"ERROR"_L1, "xmark.circle"_L1, u"Build failed"},
    Known{"FAILED"_L1, "xmark.circle"_L1, u"Build failed"},
    Known{"CANCELED"_L1, "slash.circle"_L1, u"Canceled"},
    Known{"CANCELLED"_L1, "slash.circle"_L1, u"Canceled"},
    Known{"BUILDING"_L1, "clock"_L1, u"Building…"},
    Known{"PROCESSING"_L1, "clock"_L1, u"Building…"},
    Known{"QUEUED"_L1, "clock"_L1, u"Queued"},
    Known{"NEW"_L1, "clock"_L1, u"Queued"},
    Known{"INITIALIZING"_L1, "clock"_L1, u"Queued"},
    Known{"ENQUEUED"_L1, "clock"_L1, u"Queued"},
    Known{""_L1, "circle"_L1, u"Unknown"},
};

} // namespace

IntegrationChip chip(const QString &state) {
    const auto found = std::find_if(known.begin(), known.end(),
                                    [&](const Known &entry) { return entry.state == state; });
    if (found == known.end()) {
        return {u"circle"_s, capitalized(state)};
    }
    return {found->icon, found->text.toString()};
}

} // namespace zeph::DeployStatus
