// SPDX-License-Identifier: MIT
#include "ui/onboarding/OnboardingView.h"

#include "host/OnboardingFlow.h"
#include "host/PermissionsManager.h"
#include "ports/RunLoop.h"
#include "ui/controls/Look.h"
#include "ui/controls/OverlayBar.h"
#include "ui/controls/PillButton.h"
#include "ui/onboarding/Dawn.h"
#include "ui/onboarding/OnboardingWords.h"
#include "ui/onboarding/PageEdge.h"
#include "ui/onboarding/PageFade.h"
#include "ui/onboarding/ProgressMarks.h"
#include "ui/onboarding/StepPage.h"
#include "ui/onboarding/StepPages.h"

#include <QAccessible>
#include <QBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollArea>
#include <QShortcut>

#include <utility>

namespace zeph::ui {

namespace {

constexpr std::chrono::milliseconds pollPeriod{1000};
constexpr std::chrono::milliseconds sunMotion{600};

constexpr double marksTop = 28;
constexpr double pageTop = 44;
constexpr double pageBottom = 10; // above the footer
constexpr double footerSide = 28;
constexpr double footerBottom = 26;
constexpr double besideBack = 14; // where the text of a pill would begin

QScrollArea *pageScroll(QWidget *parent) {
    auto *scroll = new QScrollArea(parent);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    scroll->setWidgetResizable(true);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->viewport()->setAutoFillBackground(false);
    new OverlayBar(*scroll); // which the area owns
    return scroll;
}

} // namespace

OnboardingView::OnboardingView(const SettingsContext &context, OnboardingFlow &flow,
                               QWidget *parent)
    : QWidget(parent),
      m_context(context),
      m_flow(flow),
      m_marks(new ProgressMarks(OnboardingFlow::stepCount, this)),
      m_scroll(pageScroll(this)),
      m_back(new PillButton(OnboardingWords::back(), PillButton::Kind::plain, this)),
      m_main(new PillButton({}, PillButton::Kind::primary, this)),
      m_fade(new PageFade(this)),
      m_rise(*this, sunMotion),
      m_subscription(context.permissions->objectWillChange.subscribe([this] { refreshSoon(); })) {
    build();
    makePage();
    m_rise.jump(m_flow.number());
    refresh();
}

OnboardingView::~OnboardingView() = default;

void OnboardingView::build() {
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, scaled(marksTop), 0, 0);
    column->setSpacing(0);
    column->addWidget(m_marks, 0, Qt::AlignHCenter);
    column->addSpacing(scaled(pageTop) - scaled(marksTop) - m_marks->sizeHint().height());
    column->addWidget(m_scroll, 1);
    column->addWidget(footer());
    for (const auto edge : {PageEdge::Edge::top, PageEdge::Edge::bottom}) {
        new PageEdge(
            edge, *m_scroll, [this](QPainter &painter) { paintSky(painter); }, this);
    }
    for (PillButton *button : {m_back, m_main}) {
        button->setHeight(PillButton::Height::large);
    }
    // Not a matter of key presses, which buttons take to move the focus.
    for (const QKeySequence &keys :
         {QKeySequence(Qt::ALT | Qt::Key_Left), QKeySequence(Qt::Key_Back)}) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, [this] { goBack(); });
    }
    connect(m_back, &PillButton::clicked, this, [this] { goBack(); });
    connect(m_main, &PillButton::clicked, this, [this] { goOn(); });
}

QWidget *OnboardingView::footer() {
    auto *footer = new QWidget(this);
    auto *row = new QHBoxLayout(footer);
    row->setContentsMargins(scaled(footerSide), scaled(pageBottom), scaled(footerSide),
                            scaled(footerBottom));
    row->addSpacing(scaled(besideBack));
    row->addWidget(m_back);
    row->addStretch(1);
    row->addWidget(m_main);
    return footer;
}

void OnboardingView::goBack() {
    if (m_flow.hasBack()) {
        m_flow.goBack();
        showStep();
    }
}

void OnboardingView::goOn() {
    if (m_flow.isLast()) {
        // In a later turn, since whoever hears of the end may end this view as well; and once.
        m_main->setEnabled(false);
        m_context.runLoop.post(m_work.whileAlive([this] {
            m_main->setEnabled(true);
            m_flow.goOn();
        }));
        return;
    }
    m_flow.goOn();
    showStep();
}

void OnboardingView::showStep() {
    const bool keepsFocus =
        focusWidget() == m_main || (focusWidget() == m_back && m_flow.hasBack());
    const QPixmap before = PageFade::pictureOf(*m_page);
    makePage();
    refresh();
    if (!keepsFocus) {
        m_main->setFocus();
    }
    layout()->activate();
    m_marks->setCurrent(m_flow.number());
    m_rise.to(m_flow.number());
    m_fade->start(before, m_scroll->geometry(), *m_page);
    announce();
}

void OnboardingView::makePage() {
    auto page = makeStepPage(m_flow.step(), m_context,
                             {.allow =
                                  [this] {
                                      m_flow.allow();
                                      refreshSoon();
                                  },
                              .openSettings = [this] { m_flow.openSettings(); }});
    m_page = page.get();
    m_scroll->setWidget(page.release());  // which deletes the one before
    m_page->setAutoFillBackground(false); // the sky is behind
}

/// Permissions tell of a change before it happens.
void OnboardingView::refreshSoon() {
    if (!std::exchange(m_refreshes, true)) {
        m_context.runLoop.post(m_work.whileAlive([this] { refresh(); }));
    }
}

void OnboardingView::refresh() {
    m_refreshes = false;
    const bool hadFocus = m_page->isAncestorOf(focusWidget());
    m_page->refresh(m_flow);
    if (hadFocus && !m_page->isAncestorOf(focusWidget())) {
        m_main->setFocus();
    }
    m_back->setVisible(m_flow.hasBack());
    m_main->setText(m_flow.mainTitle());
    // One button at most is what to do.
    m_main->setKind(m_flow.asks() && !m_flow.isGranted() ? PillButton::Kind::secondary
                                                         : PillButton::Kind::primary);
}

/// What stands on the page is told to those who don't see it.
void OnboardingView::announce() {
    const QString place = m_marks->accessibleName();
    m_main->setAccessibleDescription(place);
    QAccessibleEvent event(m_page, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

void OnboardingView::showEvent(QShowEvent *event) {
    m_flow.refresh();
    m_poll = m_context.runLoop.repeat(pollPeriod, [this] { m_flow.refresh(); });
    if (focusWidget() == nullptr) {
        m_main->setFocus();
    }
    QWidget::showEvent(event);
}

void OnboardingView::hideEvent(QHideEvent *event) {
    m_poll.reset();
    m_sky = QImage(); // it is painted anew when the window is
    QWidget::hideEvent(event);
}

void OnboardingView::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        m_main->animateClick();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void OnboardingView::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    paintSky(painter);
}

void OnboardingView::paintSky(QPainter &painter) {
    const Look &look = Look::of(*this);
    if (look.appearance() == Appearance::highContrast) {
        painter.fillRect(rect(), look.tokens().ground);
        return;
    }
    const double rise = m_rise.value() / (OnboardingFlow::stepCount - 1);
    const double ratio = devicePixelRatioF();
    const QSize pixels = (QSizeF(size()) * ratio).toSize();
    if (m_sky.size() != pixels || m_skyRise != rise) {
        m_sky = dawnSky(pixels, scale() * ratio, rise);
        m_sky.setDevicePixelRatio(ratio);
        m_skyRise = rise;
    }
    painter.drawImage(0, 0, m_sky);
    paintSun(painter, rect(), scale(), rise);
}

} // namespace zeph::ui
