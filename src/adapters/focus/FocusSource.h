// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <variant>

namespace zeph {

/// A switch among a desktop's settings.
struct QuietSetting {
    QString schema;
    QString key;
    bool quietValue = true; ///< some tell that banners are shown, some that they are not

    bool operator==(const QuietSetting &) const = default;
};

/// A switch that a service of the session answers for.
enum class QuietService {
    xfconf,       ///< a property among Xfce's settings
    notifications ///< the notification service itself tells that it is inhibited
};

using FocusSource = std::variant<QuietSetting, QuietService>;

/// Where the desktop keeps its do-not-disturb. `currentDesktop` is XDG_CURRENT_DESKTOP: names apart
/// by colons, of which the first that is known decides. For any other desktop the notification
/// service is asked, which may know of it whoever runs it.
FocusSource focusSourceFor(const QString &currentDesktop);

} // namespace zeph
