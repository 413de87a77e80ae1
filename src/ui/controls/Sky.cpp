// SPDX-License-Identifier: MIT
#include "ui/controls/Sky.h"

#include "ui/controls/Look.h"

#include <QPaintEvent>
#include <QPainter>

#include <array>

namespace zeph::ui {

namespace {

/// A light that fades to nothing: its middle from the leading and the top edge, in parts of the
/// sky's size and in pixels from there.
struct Glow {
    QPointF part;
    double offset;
    double radius;
    QColor dark;
    QColor light;
};

QColor glowing(int red, int green, int blue, double alpha) {
    QColor color(red, green, blue);
    color.setAlphaF(static_cast<float>(alpha));
    return color;
}

std::array<Glow, 3> glows() {
    return {{
        {{0, 1}, 70, 300, glowing(242, 160, 96, 0.20), glowing(255, 196, 140, 0.40)},
        {{0, 1}, 30, 620, glowing(150, 72, 128, 0.24), glowing(244, 176, 190, 0.30)},
        {{0.88, -0.06}, 0, 560, glowing(115, 140, 242, 0.14), glowing(150, 165, 245, 0.22)},
    }};
}

void paintGlow(QPainter &painter, const QSizeF &size, const Glow &glow, bool isDark) {
    const QPointF middle(glow.part.x() * size.width() + glow.offset * scale(),
                         glow.part.y() * size.height());
    QColor color = isDark ? glow.dark : glow.light;
    QRadialGradient gradient(middle, glow.radius * scale());
    gradient.setColorAt(0, color);
    color.setAlpha(0);
    gradient.setColorAt(1, color);
    painter.fillRect(QRectF(QPointF(), size), gradient);
}

} // namespace

Sky::Sky(QWidget *parent) : QWidget(parent) {}

Sky *Sky::below(const QWidget &widget) {
    QWidget *parent = widget.parentWidget();
    while (parent != nullptr && dynamic_cast<Sky *>(parent) == nullptr) {
        parent = parent->parentWidget();
    }
    return dynamic_cast<Sky *>(parent);
}

const QPixmap &Sky::picture() {
    const Look &look = Look::of(*this);
    const double ratio = devicePixelRatioF();
    const QSize pixels = (QSizeF(size()) * ratio).toSize();
    if (m_picture.size() == pixels && m_tokens == look.tokens() &&
        m_direction == layoutDirection()) {
        return m_picture;
    }
    m_tokens = look.tokens();
    m_direction = layoutDirection();
    QImage image(pixels, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    QPainter painter(&image);
    QLinearGradient gradient(0, 0, 0, height());
    gradient.setColorAt(0, m_tokens.skyTop);
    gradient.setColorAt(1, m_tokens.skyBottom);
    painter.fillRect(rect(), gradient);
    if (look.appearance() != Appearance::highContrast) {
        if (m_direction == Qt::RightToLeft) {
            painter.translate(width(), 0);
            painter.scale(-1, 1);
        }
        for (const Glow &glow : glows()) {
            paintGlow(painter, size(), glow, look.appearance() == Appearance::dark);
        }
    }
    painter.end();
    m_picture = QPixmap::fromImage(std::move(image));
    return m_picture;
}

void Sky::paintPiece(QPainter &painter, const QRect &part) {
    const QPixmap &whole = picture();
    const double ratio = whole.devicePixelRatio();
    painter.drawPixmap(QRectF(QPointF(), part.size()), whole,
                       QRectF(QPointF(part.topLeft()) * ratio, QSizeF(part.size()) * ratio));
}

void Sky::hideEvent(QHideEvent *event) {
    QWidget::hideEvent(event);
    forgetPicture();
}

void Sky::paintEvent(QPaintEvent *event) {
    QPainter painter(this);
    painter.translate(event->rect().topLeft());
    paintPiece(painter, event->rect());
}

} // namespace zeph::ui
