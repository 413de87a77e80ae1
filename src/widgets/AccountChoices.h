// SPDX-License-Identifier: MIT
#pragma once

#include <QUuid>

#include <functional>

namespace zeph {

/// What the user chose for web accounts, as far as it shows on the wallpaper. Each answers for the
/// moment of the call.
struct AccountChoices {
    /// The switch of the daily quote.
    std::function<bool()> quoteEnabled = [] { return true; };

    /// Whether the account's rating names its source; true for an account that is not known.
    std::function<bool(const QUuid &account)> showAhrefsAttribution = [](const QUuid &) {
        return true;
    };
};

} // namespace zeph
