// SPDX-License-Identifier: MIT
#include "ui/controls/ChoicePopup.h"

#include "ui/controls/ControlStyle.h"
#include "ui/controls/Look.h"
#include "ui/controls/MenuRowDelegate.h"
#include "ui/controls/Paint.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QEvent>
#include <QFrame>
#include <QLayout>
#include <QPainter>
#include <QScreen>

#include <algorithm>

namespace zeph::ui {

namespace {

constexpr double popupRadius = 12;
constexpr double popupPadding = 6;
constexpr std::chrono::milliseconds popupDuration(120);

} // namespace

ChoicePopup::ChoicePopup(QComboBox &box) : m_box(&box) {
    QAbstractItemView &view = *box.view();
    view.setItemDelegate(new MenuRowDelegate(box));
    view.setFrameShape(QFrame::NoFrame);
    view.viewport()->setAutoFillBackground(false);
    view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    ControlStyle::dress(view);

    m_window = view.window();
    ControlStyle::dress(*m_window);
    m_window->setWindowFlag(Qt::FramelessWindowHint);
    m_window->setWindowFlag(Qt::NoDropShadowWindowHint);
    m_window->setAttribute(Qt::WA_TranslucentBackground);
    m_window->installEventFilter(this);

    m_fade.setStartValue(0.0);
    m_fade.setEndValue(1.0);
    m_fade.setEasingCurve(QEasingCurve::OutCubic);
    connect(&m_fade, &QVariantAnimation::valueChanged, this,
            [this](const QVariant &value) { m_window->setWindowOpacity(value.toDouble()); });
}

void ChoicePopup::place() {
    QAbstractItemView &view = *m_box->view();
    const int padding = scaled(popupPadding);
    if (auto *frame = dynamic_cast<QFrame *>(m_window)) {
        frame->setFrameStyle(QFrame::NoFrame); // the style has given it one
    }
    m_window->layout()->setContentsMargins(padding, padding, padding, padding);
    const int rowHeight = std::max(1, view.sizeHintForRow(0));
    const QRect screen = m_box->screen()->availableGeometry();
    const QRect box(m_box->mapToGlobal(QPoint(0, 0)), m_box->size());

    const int wide = std::max(box.width(), view.sizeHintForColumn(0) + 2 * padding);
    const int rows = std::max(1, std::min(m_box->count(), m_box->maxVisibleItems()));
    const int high = std::min(rows * rowHeight + 2 * padding, screen.height());
    const bool isMirrored = m_box->layoutDirection() == Qt::RightToLeft;
    const int left = isMirrored ? box.left() : box.right() + 1 - wide;
    const int chosen = std::clamp(m_box->currentIndex(), 0, rows - 1);
    const int top = box.center().y() - padding - chosen * rowHeight - rowHeight / 2;
    m_window->setGeometry(
        std::clamp(left, screen.left(), std::max(screen.left(), screen.right() + 1 - wide)),
        std::clamp(top, screen.top(), std::max(screen.top(), screen.bottom() + 1 - high)), wide,
        high);
    cutCorners(*m_window, popupRadius * scale());
}

void ChoicePopup::fadeIn() {
    const auto duration = Look::of(*m_box).duration(popupDuration);
    m_fade.stop();
    const bool hasMotion = duration > std::chrono::milliseconds(0);
    m_window->setWindowOpacity(hasMotion ? 0 : 1);
    if (hasMotion) {
        m_fade.setDuration(static_cast<int>(duration.count()));
        m_fade.start();
    }
}

void ChoicePopup::paintMenu() const {
    const Tokens &tokens = Look::of(*m_box).tokens();
    QPainter painter(m_window);
    painter.setRenderHint(QPainter::Antialiasing);
    const Rounded shape{m_window->rect(), popupRadius * scale()};
    painter.fillPath(shape.path(), tokens.menu);
    paintHairline(painter, shape, tokens.hair);
}

bool ChoicePopup::eventFilter(QObject *object, QEvent *event) {
    if (object == m_window && event->type() == QEvent::Paint) {
        paintMenu();
        return true;
    }
    return QObject::eventFilter(object, event);
}

} // namespace zeph::ui
