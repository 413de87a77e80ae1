// SPDX-License-Identifier: MIT
#include "ui/onboarding/OnboardingWindow.h"

#include "drawing/painting/OwnFonts.h"
#include "ports/DesktopAppearance.h"
#include "ports/RunLoop.h"
#include "ui/onboarding/OnboardingView.h"
#include "ui/onboarding/OnboardingWords.h"

#include <QCloseEvent>
#include <QScreen>
#include <QShortcut>
#include <QStyle>

#include <utility>

namespace zeph::ui {

namespace {

constexpr QSizeF windowSize{470, 580};
constexpr int besideWindow = 16; // logical pixels of the screen that stay free, with the frame
constexpr int aboveWindow = 48;

QWidget &withAllFonts(QWidget &window) {
    OwnFonts::takeAll();
    return window;
}

/// The night of the first start is dark for everyone but those who need more contrast.
Appearance appearanceFor(const DesktopAppearance &desktop) {
    return desktop.wantsHighContrast() ? Appearance::highContrast : Appearance::dark;
}

} // namespace

OnboardingWindow::OnboardingWindow(const SettingsContext &context, std::function<void()> onDone)
    : QWidget(nullptr, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                           Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint),
      m_context(context),
      m_flow(context.permissions, context.systemSettings, std::move(onDone)),
      m_look(withAllFonts(*this), appearanceFor(context.appearance)),
      m_subscription(context.appearance.subscribe([this] { remakeSoon(); })) {
    setWindowTitle(OnboardingWords::windowTitle());
    setAttribute(Qt::WA_QuitOnClose, false);
    dress();
    makeView();
    auto *close = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_W), this);
    connect(close, &QShortcut::activated, this, [this] { this->close(); });
}

OnboardingWindow::~OnboardingWindow() {
    delete m_view; // before the look that it is painted with
}

void OnboardingWindow::dress() {
    const bool moves = m_context.appearance.wantsMotion() &&
                       style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) > 0;
    m_look.setMotion(moves);
    m_look.setAppearance(appearanceFor(m_context.appearance));
}

void OnboardingWindow::makeView() {
    delete m_view;
    m_view = new OnboardingView(m_context, m_flow, this);
    setFixedSize(wantedSize());
    m_view->setGeometry(rect());
    m_view->setVisible(true);
}

/// Sizes and fonts are those of the time when a view is made.
void OnboardingWindow::remakeSoon() {
    if (!std::exchange(m_remakes, true)) {
        m_context.runLoop.post(m_work.whileAlive([this] {
            m_remakes = false;
            dress();
            makeView();
        }));
    }
}

QSize OnboardingWindow::wantedSize() const {
    const QSize wanted(scaled(windowSize.width()), scaled(windowSize.height()));
    const QSize room = screen()->availableGeometry().size() - QSize(besideWindow, aboveWindow);
    return wanted.boundedTo(room);
}

void OnboardingWindow::present() {
    if (!isVisible()) {
        setFixedSize(wantedSize());
        QRect place(QPoint(), size());
        place.moveCenter(screen()->availableGeometry().center());
        move(place.topLeft());
    }
    show();
    raise();
    activateWindow();
}

void OnboardingWindow::closeEvent(QCloseEvent *event) {
    event->accept();
    if (onClosed) {
        onClosed();
    }
}

bool OnboardingWindow::event(QEvent *event) {
    if (event->type() == QEvent::ApplicationFontChange ||
        event->type() == QEvent::ApplicationPaletteChange) {
        remakeSoon();
    }
    return QWidget::event(event);
}

void OnboardingWindow::resizeEvent(QResizeEvent *event) {
    if (m_view != nullptr) {
        m_view->setGeometry(rect());
    }
    QWidget::resizeEvent(event);
}

} // namespace zeph::ui
