// SPDX-License-Identifier: MIT
#include "adapters/session/nemo/NemoTool.h"

using namespace Qt::StringLiterals;

namespace zeph {

NemoSettings nemoSettings(UserDefaults &defaults, std::chrono::milliseconds patience) {
    return {[patience](const QStringList &arguments) {
                return runTool(u"gsettings"_s, arguments, patience);
            },
            defaults};
}

NemoOutcome giveNemoBack(UserDefaults &defaults) {
    return nemoSettings(defaults, std::chrono::seconds(2)).giveBack();
}

} // namespace zeph
