// SPDX-License-Identifier: MIT
#pragma once

#include "base/ChangePublisher.h"
#include "base/WorkOwner.h"
#include "host/OnboardingFlow.h"
#include "ui/controls/Look.h"
#include "ui/settings/SettingsContext.h"

#include <QWidget>

#include <functional>

namespace zeph::ui {

class OnboardingView;

/// The window of the first start. Closed and shown again, it stands where it stood.
class OnboardingWindow : public QWidget {
public:
    /// `onDone` is called, in a turn of the loop of its own, when the user went through to the end;
    /// it may end this window.
    OnboardingWindow(const SettingsContext &context, std::function<void()> onDone);
    ~OnboardingWindow() override;
    OnboardingWindow(const OnboardingWindow &) = delete;
    OnboardingWindow &operator=(const OnboardingWindow &) = delete;

    /// Called whenever the window closes, which finishes nothing.
    std::function<void()> onClosed;

    /// Shows the window in the middle of its screen, or brings it to the front.
    void present();

    OnboardingStep step() const { return m_flow.step(); }
    OnboardingView &view() { return *m_view; }

protected:
    void closeEvent(QCloseEvent *event) override;
    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void dress();
    void makeView();
    void remakeSoon();
    QSize wantedSize() const;

    SettingsContext m_context;
    OnboardingFlow m_flow;
    Look m_look;
    OnboardingView *m_view = nullptr;
    bool m_remakes = false; // the view will be made anew
    WorkOwner m_work;
    Subscription m_subscription;
};

} // namespace zeph::ui
