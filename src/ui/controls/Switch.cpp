// SPDX-License-Identifier: MIT
#include "ui/controls/Switch.h"

#include "ui/controls/Look.h"

#include <QPainter>

#include <algorithm>

namespace zeph::ui {

namespace {

constexpr std::chrono::milliseconds switchDuration(160);

double between(double from, double to, double part) {
    return from + (to - from) * part;
}

} // namespace

Switch::Switch(QWidget *parent) : QCheckBox(parent), m_on(*this, switchDuration) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QCheckBox::toggled, this, [this](bool isOn) { m_on.to(isOn ? 1 : 0); });
}

QSize Switch::sizeHint() const {
    return {scaled(48), scaled(34)};
}

void Switch::setAtStart(bool isAtStart) {
    m_isAtStart = isAtStart;
    update();
}

Rounded Switch::track() const {
    const double wide = scaled(44);
    const double high = scaled(26);
    const double left = m_isAtStart ? 0 : width() - wide;
    return pill(mirrored(*this, {left, (height() - high) / 2, wide, high}));
}

void Switch::paintEvent(QPaintEvent *) {
    paintControl(*this, [this](QPainter &painter) {
        const Tokens &tokens = Look::of(*this).tokens();
        paintTrack(painter, tokens);
        paintDisc(painter, tokens);
    });
}

void Switch::paintTrack(QPainter &painter, const Tokens &tokens) const {
    const double on = m_on.value();
    const QColor off = blend(Qt::transparent, tokens.fill, m_interaction.hover());
    const QColor sun = hovered(tokens.accent, tokens, m_interaction.hover());
    const QColor fill =
        isDown() ? blend(tokens.press, hovered(tokens.accent, tokens, 1), on) : blend(off, sun, on);
    painter.setPen(Qt::NoPen);
    painter.fillPath(track().path(), fill);
    if (on < 1) {
        strokeInside(painter, track(), 1.5 * scale(), veiled(tokens.edge, 1 - on));
    }
}

void Switch::paintDisc(QPainter &painter, const Tokens &tokens) const {
    const double on = m_on.value();
    const QRectF place = track().rect;
    const double way = between(13, place.width() / scale() - 13, on) * scale();
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    const QPointF center(isMirrored ? place.right() - way : place.left() + way, place.center().y());
    const double radius = between(7, 9, on) * scale();
    const double line = std::min(between(2, 9, on) * scale(), radius);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(blend(tokens.second, tokens.onAccent, on), line));
    painter.drawEllipse(center, radius - line / 2, radius - line / 2);
}

} // namespace zeph::ui
