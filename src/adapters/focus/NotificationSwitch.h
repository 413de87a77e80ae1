// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/focus/FollowedAnswer.h"
#include "adapters/focus/QuietSwitch.h"

namespace zeph {

/// The notification service's word that it is inhibited, which Plasma gives, by the user's wish as
/// well as an application's. Absent for a service that does not tell.
class NotificationSwitch : public QuietSwitch {
public:
    /// `bus` is the session bus. `news` runs when the answer changed.
    NotificationSwitch(const QDBusConnection &bus, std::function<void()> news);

    std::optional<bool> isQuiet() const override { return m_answer.value(); }

private:
    void changed(const QDBusMessage &signal);

    FollowedAnswer m_answer;
};

} // namespace zeph
