// SPDX-License-Identifier: MIT
#include "ui/controls/PercentSlider.h"

#include "ui/controls/Look.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr double knobSize = 18;
constexpr double trackHeight = 4;
constexpr double valueWidth = 40;
constexpr double valueGap = 16;
constexpr double restAlpha = 0.22; // of the track beyond the value

} // namespace

PercentSlider::PercentSlider(QWidget *parent) : QSlider(Qt::Horizontal, parent) {
    setRange(0, 100);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize PercentSlider::sizeHint() const {
    return {scaled(200), scaled(28)};
}

QSize PercentSlider::minimumSizeHint() const {
    return {scaled(120), scaled(28)};
}

QRectF PercentSlider::track() const {
    const double high = scaled(trackHeight);
    return {0, (height() - high) / 2.0, width() - scaled(valueGap + valueWidth) * 1.0, high};
}

double PercentSlider::knobAt() const {
    const double room = track().width() - scaled(knobSize);
    const double part =
        static_cast<double>(sliderPosition() - minimum()) / std::max(1, maximum() - minimum());
    return scaled(knobSize) / 2.0 + room * part;
}

Rounded PercentSlider::knob() const {
    const double size = scaled(knobSize);
    return pill(mirrored(*this, {knobAt() - size / 2, (height() - size) / 2, size, size}));
}

int PercentSlider::valueAt(double x) const {
    const double room = std::max(1.0, track().width() - scaled(knobSize));
    const double way = layoutDirection() == Qt::RightToLeft ? width() - x : x;
    const double part = std::clamp((way - scaled(knobSize) / 2.0) / room, 0.0, 1.0);
    return minimum() + static_cast<int>(std::lround(part * (maximum() - minimum())));
}

void PercentSlider::wheelEvent(QWheelEvent *event) {
    event->ignore();
}

void PercentSlider::mousePressEvent(QMouseEvent *event) {
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    const QRectF held = knob().rect;
    const double x = event->position().x();
    m_grip = held.contains(event->position()) ? x - held.center().x() : 0;
    setSliderDown(true);
    setSliderPosition(valueAt(x - m_grip));
}

void PercentSlider::mouseMoveEvent(QMouseEvent *event) {
    if (isSliderDown()) {
        setSliderPosition(valueAt(event->position().x() - m_grip));
    }
}

void PercentSlider::mouseReleaseEvent(QMouseEvent *event) {
    if (event->button() == Qt::LeftButton) {
        setSliderDown(false);
    }
}

void PercentSlider::sliderChange(SliderChange change) {
    QSlider::sliderChange(change);
    m_interaction.updateRing();
}

void PercentSlider::paintEvent(QPaintEvent *) {
    paintControl(*this, [this](QPainter &painter) {
        const Look &look = Look::of(*this);
        const Tokens &tokens = look.tokens();
        const QRectF whole = track();
        const QRectF filled(whole.left(), whole.top(), knobAt(), whole.height());
        const QColor rest = look.appearance() == Appearance::highContrast
                                ? tokens.edge
                                : veiled(tokens.ink, restAlpha);
        painter.fillPath(pill(mirrored(*this, whole)).path(), rest);
        painter.fillPath(pill(mirrored(*this, filled)).path(), tokens.accent);

        const Rounded grown = knob().inset(isSliderDown() ? 0 : -m_interaction.hover() * scale());
        const Rounded shape = pill(grown.rect);
        paintThinShadow(painter, shape);
        painter.fillPath(shape.path(), tokens.ink);

        painter.setFont(ui::font(TypeRole::segment));
        painter.setPen(tokens.ink);
        const QRectF place(width() - scaled(valueWidth), 0, scaled(valueWidth), height());
        const bool isMirrored = layoutDirection() == Qt::RightToLeft;
        painter.drawText(mirrored(*this, place),
                         Qt::AlignVCenter | Qt::TextSingleLine |
                             (isMirrored ? Qt::AlignLeft : Qt::AlignRight),
                         QString::number(sliderPosition()) + u'%');
    });
}

} // namespace zeph::ui
