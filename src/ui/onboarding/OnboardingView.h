// SPDX-License-Identifier: MIT
#pragma once

#include "base/ChangePublisher.h"
#include "base/WorkOwner.h"
#include "ui/controls/Glide.h"
#include "ui/settings/SettingsContext.h"

#include <QImage>
#include <QWidget>

#include <memory>

class QScrollArea;

namespace zeph {
class OnboardingFlow;
class RunLoopTimer;
} // namespace zeph

namespace zeph::ui {

class PageFade;
class PillButton;
class ProgressMarks;
class StepPage;

/// The first start: one page a step under the marks of all steps, a footer to go back and on, and
/// behind them a sun that rises step by step. While it is shown it looks every second what is
/// allowed by now.
class OnboardingView : public QWidget {
public:
    /// Begins where `flow` stands; it outlives the view.
    OnboardingView(const SettingsContext &context, OnboardingFlow &flow, QWidget *parent = nullptr);
    ~OnboardingView() override;
    OnboardingView(const OnboardingView &) = delete;
    OnboardingView &operator=(const OnboardingView &) = delete;

    /// Shows the step that the flow stands at.
    void showStep();

    void goBack();
    void goOn();

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void build();
    QWidget *footer();
    void makePage();
    void refreshSoon();
    void refresh();
    void announce();
    void paintSky(QPainter &painter);

    SettingsContext m_context;
    OnboardingFlow &m_flow;
    ProgressMarks *m_marks;
    QScrollArea *m_scroll;
    PillButton *m_back;
    PillButton *m_main;
    StepPage *m_page = nullptr;
    PageFade *m_fade;
    Glide m_rise; // of the sun, in steps
    QImage m_sky; // as painted last
    double m_skyRise = -1;
    std::unique_ptr<RunLoopTimer> m_poll; // while the view is shown
    bool m_refreshes = false;             // a refresh is pending
    WorkOwner m_work;
    Subscription m_subscription;
};

} // namespace zeph::ui
