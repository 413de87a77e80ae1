// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/focus/FollowedAnswer.h"
#include "adapters/focus/QuietSwitch.h"

namespace zeph {

/// Xfce's do-not-disturb, a property among its settings that is only there once it was used.
class XfconfSwitch : public QuietSwitch {
public:
    /// `bus` is the session bus. `news` runs when the answer changed.
    XfconfSwitch(const QDBusConnection &bus, std::function<void()> news);

    std::optional<bool> isQuiet() const override { return m_answer.value(); }

private:
    FollowedAnswer m_answer;
};

} // namespace zeph
