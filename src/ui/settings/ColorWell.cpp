// SPDX-License-Identifier: MIT
#include "ui/settings/ColorWell.h"

#include "ui/controls/Look.h"

#include <QColorDialog>
#include <QPainter>

namespace zeph::ui {

namespace {

constexpr double wellWidth = 48;
constexpr double wellHeight = 30;

} // namespace

ColorWell::ColorWell(const QString &name, QWidget *parent) : QPushButton(parent) {
    setAccessibleName(name);
    setAutoDefault(true); // so that Enter presses it too
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
    return {scaled(wellWidth), scaled(wellHeight)};
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
    paintControl(*this, [this](QPainter &painter) {
        const Rounded well = pill(rect());
        painter.fillPath(well.path(), m_color);
        strokeInside(painter, well, 1, Look::of(*this).tokens().edge);
    });
}

} // namespace zeph::ui
