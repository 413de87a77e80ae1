// SPDX-License-Identifier: MIT
#include "adapters/session/nemo/NemoTool.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

using Moments = std::chrono::steady_clock;

// It takes a fiftieth of a second, unless the computer is busy.
constexpr std::chrono::milliseconds kToolPatience{2000};

std::optional<ToolAnswer> runUntil(Moments::time_point end, const QStringList &arguments) {
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Moments::now());
    return left.count() > 0 ? runTool(u"gsettings"_s, arguments, std::min(left, kToolPatience))
                            : std::nullopt;
}

} // namespace

NemoSettings nemoSettings(UserDefaults &defaults) {
    return {[](const QStringList &arguments) {
                return runTool(u"gsettings"_s, arguments, kToolPatience);
            },
            defaults};
}

NemoOutcome giveNemoBack(UserDefaults &defaults, std::chrono::milliseconds patience) {
    const NemoSettings settings(
        [end = Moments::now() + patience](const QStringList &arguments) {
            return runUntil(end, arguments);
        },
        defaults);
    return settings.giveBack();
}

} // namespace zeph
