// SPDX-License-Identifier: MIT
#include "ui/settings/LiveRefresh.h"

#include "ports/RunLoop.h"

#include <QEvent>
#include <QWidget>

namespace zeph::ui {

LiveRefresh::LiveRefresh(QWidget &view, RunLoop &runLoop, std::function<void()> refresh)
    : QObject(&view), m_view(view), m_runLoop(runLoop), m_refresh(std::move(refresh)) {
    view.installEventFilter(this);
}

void LiveRefresh::follow(const ChangePublisher &changes) {
    follow(changes.subscribe(handler()));
}

void LiveRefresh::follow(Subscription subscription) {
    m_subscriptions.push_back(std::move(subscription));
}

std::function<void()> LiveRefresh::handler() {
    return m_owner.whileAlive([this] { request(); });
}

void LiveRefresh::request() {
    if (m_view.isVisible() && !m_isPending) {
        m_isPending = true;
        m_runLoop.post(m_owner.whileAlive([this] {
            m_isPending = false;
            if (m_view.isVisible()) {
                m_refresh();
            }
        }));
    }
}

bool LiveRefresh::eventFilter(QObject * /*watched*/, QEvent *event) {
    if (event->type() == QEvent::Show) {
        m_refresh();
    }
    return false;
}

} // namespace zeph::ui
