// SPDX-License-Identifier: MIT
#include "ui/controls/Stepper.h"

#include "ui/controls/Look.h"

#include <QContextMenuEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

namespace zeph::ui {

namespace {

constexpr std::chrono::milliseconds firstRepeat(400);
constexpr std::chrono::milliseconds nextRepeat(90);

} // namespace

Stepper::Stepper(int least, int most, QWidget *parent) : QSpinBox(parent) {
    setRange(least, most);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setMouseTracking(true);
    setAttribute(Qt::WA_InputMethodEnabled, false);
    lineEdit()->hide();
    m_repeat.setSingleShot(true);
    connect(&m_repeat, &QTimer::timeout, this, [this] { stepOn(); });
    connect(this, &QSpinBox::valueChanged, this, [this] { update(); });
}

QSize Stepper::sizeHint() const {
    return {2 * scaled(40), scaled(34)};
}

Stepper::Half Stepper::halfAt(const QPointF &place) const {
    for (const Half half : {Half::less, Half::more}) {
        if (rectOf(half).contains(place)) {
            return half;
        }
    }
    return Half::none;
}

QRectF Stepper::rectOf(Half half) const {
    const double wide = width() / 2.0;
    const double left = half == Half::less ? 0 : wide;
    return mirrored(*this, {left, 0, wide, static_cast<double>(height())});
}

bool Stepper::canStep(Half half) const {
    return half == Half::less ? value() > minimum() : half == Half::more && value() < maximum();
}

void Stepper::step(Half half) {
    if (canStep(half)) {
        stepBy(half == Half::less ? -1 : 1);
    }
}

void Stepper::stepOn() {
    if (!isVisible() || !isEnabled()) {
        m_pressed = Half::none; // nobody tells of the release
        return;
    }
    step(m_pressed);
    if (canStep(m_pressed)) {
        m_repeat.start(nextRepeat);
    }
}

void Stepper::wheelEvent(QWheelEvent *event) {
    event->ignore();
}

// Digits would change a number that is not in sight.
void Stepper::keyPressEvent(QKeyEvent *event) {
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Plus:
    case Qt::Key_PageUp:
        step(Half::more);
        return;
    case Qt::Key_Down:
    case Qt::Key_Minus:
    case Qt::Key_PageDown:
        step(Half::less);
        return;
    case Qt::Key_Right:
        step(isMirrored ? Half::less : Half::more);
        return;
    case Qt::Key_Left:
        step(isMirrored ? Half::more : Half::less);
        return;
    case Qt::Key_Home:
        setValue(minimum());
        return;
    case Qt::Key_End:
        setValue(maximum());
        return;
    default:
        event->ignore();
    }
}

void Stepper::inputMethodEvent(QInputMethodEvent *event) {
    event->ignore();
}

void Stepper::contextMenuEvent(QContextMenuEvent *event) {
    event->ignore();
}

void Stepper::mousePressEvent(QMouseEvent *event) {
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    m_pressed = halfAt(event->position());
    step(m_pressed);
    m_repeat.start(firstRepeat);
    update();
}

void Stepper::mouseMoveEvent(QMouseEvent *event) {
    m_hovered = halfAt(event->position());
    update();
}

void Stepper::mouseReleaseEvent(QMouseEvent *) {
    m_pressed = Half::none;
    m_repeat.stop();
    update();
}

void Stepper::paintHalf(QPainter &painter, Half half) const {
    const Tokens &tokens = Look::of(*this).tokens();
    const QRectF place = rectOf(half);
    const bool isPressed = m_pressed == half && canStep(half);
    const bool isHovered = m_hovered == half && canStep(half);
    const double hover = isHovered ? m_interaction.hover() : 0;
    painter.save();
    painter.setClipRect(place);
    painter.fillPath(pill(rect()).path(),
                     isPressed ? tokens.press : blend(tokens.button, tokens.buttonHover, hover));
    painter.restore();
    painter.setOpacity(painter.opacity() * (canStep(half) ? 1 : disabledOpacity));
    const QColor ink = blend(tokens.second, tokens.ink, hover);
    if (half == Half::less) {
        paintMinus(painter, place.center(), ink);
    } else {
        paintPlus(painter, place.center(), ink);
    }
    painter.setOpacity(1);
}

void Stepper::paintEvent(QPaintEvent *) {
    paintControl(*this, [this](QPainter &painter) {
        const Tokens &tokens = Look::of(*this).tokens();
        paintHalf(painter, Half::less);
        paintHalf(painter, Half::more);
        const double high = 18 * scale();
        const QRectF line(width() / 2.0, (height() - high) / 2, hairline(painter), high);
        painter.fillRect(onPixels(painter, line), tokens.hair);
        paintHairline(painter, pill(rect()), tokens.hair);
    });
}

} // namespace zeph::ui
