// SPDX-License-Identifier: MIT
#include "ui/controls/LiftedRow.h"

#include "ui/controls/Look.h"
#include "ui/controls/Paint.h"

#include <QEvent>
#include <QPainter>

namespace zeph::ui {

namespace {

constexpr std::chrono::milliseconds liftDuration(120);
constexpr double liftedSideways = 10;
constexpr double liftedDown = 6; // so that the line of its place is seen
constexpr double liftedRadius = 12;
constexpr double shadowDrop = 10;
constexpr double shadowBlur = 28;
constexpr double shadowRoom = 40;
constexpr int shadowLayers = 14;
constexpr double shadowAlpha = 0.45;

/// Layers that grow and add up, softer than one and cheaper than a blurred picture.
void paintLiftShadow(QPainter &painter, const Rounded &shape, double strength) {
    QColor layer = Qt::black;
    layer.setAlphaF(static_cast<float>(shadowAlpha * strength / shadowLayers));
    for (int index = 0; index < shadowLayers; ++index) {
        const double spread = shadowBlur * scale() * (0.5 - (index + 0.5) / shadowLayers);
        Rounded one = shape.inset(-spread);
        one.rect.translate(0, shadowDrop * scale());
        painter.fillPath(one.path(), layer);
    }
}

} // namespace

LiftedRow::LiftedRow(QWidget &list, std::function<void(QPainter &, const QRectF &)> paint)
    : QWidget(list.window()), m_list(list), m_paint(std::move(paint)), m_lift(*this, liftDuration) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    // Where the list moves with what lies around it, the row goes along.
    for (QWidget *around = &list; !around->isWindow(); around = around->parentWidget()) {
        around->installEventFilter(this);
    }
}

bool LiftedRow::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::Move && !m_row.isNull()) {
        place(m_row);
    }
    return QWidget::eventFilter(watched, event);
}

void LiftedRow::place(const QRect &row) {
    m_row = row;
    const int room = scaled(shadowRoom);
    const QPoint corner = m_list.mapTo(window(), row.topLeft());
    setGeometry(QRect(corner, row.size()).adjusted(-room, -room, room, room));
    raise();
    show();
    m_lift.to(1);
    update();
}

void LiftedRow::paintEvent(QPaintEvent *) {
    const Tokens &tokens = Look::of(*this).tokens();
    const double room = scaled(shadowRoom);
    const double up = m_lift.value();
    const double sideways = layoutDirection() == Qt::RightToLeft ? -liftedSideways : liftedSideways;
    const QRectF flat = QRectF(rect()).adjusted(room, room, -room, -room);
    const Rounded shape{flat.translated(sideways * scale() * up, liftedDown * scale() * up),
                        liftedRadius * scale()};
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintLiftShadow(painter, shape, up);
    painter.fillPath(shape.path(), tokens.lift);
    paintHairline(painter, shape, tokens.hair);
    m_paint(painter, shape.rect);
}

} // namespace zeph::ui
