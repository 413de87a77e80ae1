// SPDX-License-Identifier: MIT
#pragma once

#include "base/ChangePublisher.h"
#include "base/WorkOwner.h"

#include <QObject>

#include <functional>
#include <vector>

class QWidget;

namespace zeph {

class RunLoop;

namespace ui {

/// Brings a view up to date after changes: once in a later turn of the loop, however many changes
/// there were, and only while the view is shown. One that comes into sight is up to date at once.
class LiveRefresh : public QObject {
public:
    /// `view` owns it.
    LiveRefresh(QWidget &view, RunLoop &runLoop, std::function<void()> refresh);

    /// Also after what `changes` tells of, before or after it happens.
    void follow(const ChangePublisher &changes);
    void follow(Subscription subscription);

    /// To be called when the view may be out of date.
    void request();

    /// `request` as a handler of a subscription, which may outlive this.
    std::function<void()> handler();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget &m_view;
    RunLoop &m_runLoop;
    std::function<void()> m_refresh;
    bool m_isPending = false; // a refresh is posted
    WorkOwner m_owner;
    std::vector<Subscription> m_subscriptions;
};

} // namespace ui

} // namespace zeph
