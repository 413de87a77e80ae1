// SPDX-License-Identifier: MIT
#include "ui/settings/ColorWell.h"

#include "ui/controls/Look.h"

#include <QColorDialog>
#include <QPainter>

namespace zeph::ui {

namespace {

constexpr double wellWidth = 48;
constexpr double wellHeight = 30;
constexpr double ringRoom = 4; // for the ring of the focus and the gap to it

} // namespace

ColorWell::ColorWell(const QString &name, QWidget *parent) : QPushButton(parent) {
    setAccessibleName(name);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(this, &QPushButton::clicked, this, [this] { ask(); });
}

void ColorWell::setColor(const QColor &color) {
    if (color != m_color) {
        m_color = color;
        setAccessibleDescription(color.name().toUpper());
        update();
    }
}

QSize ColorWell::sizeHint() const {
    return {scaled(wellWidth + 2 * ringRoom), scaled(wellHeight + 2 * ringRoom)};
}

void ColorWell::ask() {
    // It returns at once: a loop of the dialog's own would hold up the wallpaper's next steps.
    auto *dialog = new QColorDialog(m_color, this);
    dialog->setOption(QColorDialog::DontUseNativeDialog);
    dialog->setWindowTitle(accessibleName());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QColorDialog::colorSelected, this, [this](const QColor &chosen) {
        if (onChosen) {
            onChosen(chosen);
        }
    });
    dialog->open();
}

void ColorWell::paintEvent(QPaintEvent * /*event*/) {
    const Tokens &tokens = Look::of(*this).tokens();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const int room = scaled(ringRoom);
    const QRectF well = QRectF(rect()).adjusted(room, room, -room, -room);
    const double radius = well.height() / 2;
    if (hasFocus() && m_showsFocus) {
        constexpr double ringWidth = 2;
        painter.setPen(QPen(tokens.focus, scaled(ringWidth)));
        const double middle = room - scaled(ringWidth) / 2.0;
        painter.drawRoundedRect(well.adjusted(-middle, -middle, middle, middle), radius + middle,
                                radius + middle);
    }
    painter.setPen(QPen(tokens.edge, 1));
    painter.setBrush(m_color);
    painter.drawRoundedRect(well.adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
}

} // namespace zeph::ui
