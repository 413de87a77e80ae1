// SPDX-License-Identifier: MIT
#include "ui/controls/ControlSheet.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEnterEvent>
#include <QLineEdit>
#include <QPainter>

namespace zeph::ui {

namespace {

constexpr int cellMargin = 12; // for rings and shadows

void bring(QWidget &control, ControlSheet::State state) {
    switch (state) {
    case ControlSheet::State::normal:
        return;
    case ControlSheet::State::hovered: {
        const QPointF place(control.width() - 6.0, control.height() / 2.0);
        QEnterEvent event(place, place, place);
        QApplication::sendEvent(&control, &event);
        return;
    }
    case ControlSheet::State::pressed:
        if (auto *button = dynamic_cast<QAbstractButton *>(&control)) {
            button->setDown(true);
        }
        return;
    case ControlSheet::State::focused:
        control.setFocus(Qt::TabFocusReason);
        if (auto *field = dynamic_cast<QLineEdit *>(&control)) {
            field->end(false);
        }
        return;
    case ControlSheet::State::disabled:
        control.setEnabled(false);
        return;
    }
}

} // namespace

ControlSheet::ControlSheet(const QSize &size, Appearance appearance)
    : m_appearance(appearance),
      m_picture((QSizeF(size) * qApp->devicePixelRatio()).toSize(),
                QImage::Format_ARGB32_Premultiplied) {
    m_picture.setDevicePixelRatio(qApp->devicePixelRatio());
    QPalette colors = QApplication::palette(); // a highlight that is seen too little
    colors.setColor(QPalette::Highlight, appearance == Appearance::light ? Qt::white : Qt::black);
    QApplication::setPalette(colors);
    const Tokens tokens = Tokens::of(appearance, QApplication::palette());
    QLinearGradient sky(0, 0, 0, size.height());
    sky.setColorAt(0, tokens.skyTop);
    sky.setColorAt(1, tokens.skyBottom);
    QPainter painter(&m_picture);
    painter.fillRect(QRect(QPoint(), size), sky);
}

void ControlSheet::add(const QPoint &place, QWidget *control, State state, int width) {
    QWidget window;
    Look look(window, m_appearance);
    look.setMotion(false);
    control->setParent(&window);
    QSize size = control->sizeHint();
    if (width > 0) {
        size.setWidth(width);
    }
    control->setGeometry(QRect(QPoint(cellMargin, cellMargin), size));
    window.resize(size + QSize(2 * cellMargin, 2 * cellMargin));
    window.setFocusPolicy(Qt::StrongFocus);
    window.setFocus();
    window.show();
    QApplication::setActiveWindow(&window);
    QApplication::processEvents();
    bring(*control, state);
    paint(place, window);
}

void ControlSheet::addMirrored(const QPoint &place, QWidget *control, int width) {
    control->setLayoutDirection(Qt::RightToLeft);
    add(place, control, State::normal, width);
}

void ControlSheet::paint(const QPoint &place, QWidget &window) {
    QPainter painter(&m_picture);
    window.render(&painter, place - QPoint(cellMargin, cellMargin), QRegion(),
                  QWidget::DrawChildren);
}

} // namespace zeph::ui
