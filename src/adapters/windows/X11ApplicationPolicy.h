// SPDX-License-Identifier: MIT
#pragma once

#include "ports/ApplicationPolicy.h"

#include <QObject>

class QWindow;
struct xcb_connection_t;

namespace zeph {

/// The windows that the toolkit makes for this program, as those of an application or not. On X an
/// accessory's are left out of task bars, by _NET_WM_STATE_SKIP_TASKBAR, and stay on the pager.
/// Without an X connection of the toolkit nothing is done. Main thread only.
class X11ApplicationPolicy : public ApplicationPolicy, private QObject {
public:
    /// The application object outlives this.
    X11ApplicationPolicy();
    ~X11ApplicationPolicy() override;

    void setActivationPolicy(ActivationPolicy policy) override;
    void activate(QWindow &window) override;

private:
    bool eventFilter(QObject *object, QEvent *event) override;
    void writeState(const QWindow &window) const;
    void askForState(const QWindow &window) const;

    xcb_connection_t *m_connection; // null without X
    std::uint32_t m_root = 0;
    std::uint32_t m_netWmState = 0;
    std::uint32_t m_skipTaskbar = 0;
    std::uint32_t m_netActiveWindow = 0;
    ActivationPolicy m_policy = ActivationPolicy::regular;
};

} // namespace zeph
