// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/dbus/SignalWatch.h"
#include "platform/linux/focus/FollowedAnswer.h"
#include "platform/linux/focus/QuietSwitch.h"

namespace zeph {

/// Xfce's do-not-disturb, a property among its settings that is only there once it was used.
class XfconfSwitch : public QuietSwitch {
public:
    /// `bus` is the session bus. `news` runs when the answer changed.
    XfconfSwitch(const QDBusConnection &bus, std::function<void()> news);

    std::optional<bool> isQuiet() const override { return m_answer.value(); }

private:
    SignalWatch m_changed; // before the question, so that nothing changes unseen after the answer
    SignalWatch m_removed;
    FollowedAnswer m_answer;
};

} // namespace zeph
