// SPDX-License-Identifier: MIT
#include "ui/controls/Logo.h"

#include "ui/controls/Look.h"

#include <QPainter>
#include <QSvgRenderer>

namespace zeph::ui {

using namespace Qt::StringLiterals;

Logo::Logo(double size, QWidget *parent) : QWidget(parent) {
    setFixedSize(scaled(size), scaled(size));
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void Logo::hideEvent(QHideEvent *event) {
    QWidget::hideEvent(event);
    m_picture = QPixmap();
}

void Logo::paintEvent(QPaintEvent *) {
    const double ratio = devicePixelRatioF();
    const QSize pixels = (QSizeF(size()) * ratio).toSize();
    if (m_picture.size() != pixels) {
        m_picture = QPixmap(pixels);
        m_picture.fill(Qt::transparent);
        QPainter painter(&m_picture);
        painter.setRenderHint(QPainter::Antialiasing);
        QSvgRenderer(u":/logo.svg"_s).render(&painter);
    }
    m_picture.setDevicePixelRatio(ratio);
    QPainter(this).drawPixmap(0, 0, m_picture);
}

} // namespace zeph::ui
