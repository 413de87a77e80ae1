// SPDX-License-Identifier: MIT
#include "ui/integrations/Veil.h"

#include "ui/controls/Look.h"

#include <QPainter>

namespace zeph::ui {

namespace {

constexpr double veilRadius = 10;

} // namespace

void Veil::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Look::of(*this).tokens().hover);
    painter.drawRoundedRect(rect(), scaled(veilRadius), scaled(veilRadius));
}

} // namespace zeph::ui
