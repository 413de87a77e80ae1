// SPDX-License-Identifier: MIT
#include "ui/controls/Swatch.h"

#include "drawing/painting/BackdropPainter.h"
#include "drawing/palette/Palette.h"
#include "ui/controls/Look.h"

#include <QPainter>
#include <QRegion>

#include <array>

namespace zeph::ui {

namespace {

constexpr double cornerRadius = 11;
constexpr double tickDisc = 12;
constexpr double tickInset = 11;       // of the disc's centre from the corner
constexpr QRgb tickLight = 0xffffffff; // on any background, whatever the theme
constexpr QRgb tickDark = 0xff1a1420;

} // namespace

Swatch::Swatch(const QString &name, QString hex, QWidget *parent)
    : QRadioButton(name, parent), m_hex(std::move(hex)) {
    setToolTip(name);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(this, &QRadioButton::toggled, this,
            [this](bool isChosen) { m_interaction.setMarked(isChosen); });
}

QSize Swatch::sizeHint() const {
    return {scaled(45), scaled(36)};
}

Rounded Swatch::shape() const {
    return {rect(), cornerRadius * scale()};
}

const QImage &Swatch::picture(double ratio) {
    const QSize pixels = (QSizeF(size()) * ratio).toSize();
    if (m_picture.size() != pixels) {
        m_picture = QImage(pixels, QImage::Format_RGB32);
        const Color color = Color::fromHex(m_hex).value_or(Color::black());
        const Palette palette = Palette::custom(color, FocusState::off);
        paintBackdrop(AmbientBackground::still(palette), m_picture.rect(), m_picture);
    }
    return m_picture;
}

void Swatch::paintTick(QPainter &painter) const {
    const double inset = tickInset * scale();
    const double unit = scale();
    const QRectF corner(width() - inset, height() - inset, 0, 0);
    const QPointF center = mirrored(*this, corner).topLeft();
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(tickLight));
    painter.drawEllipse(center, tickDisc / 2 * unit, tickDisc / 2 * unit);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(tickDark), 1.5 * unit, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const std::array stroke{center + QPointF(-2.4, 0.2) * unit, center + QPointF(-0.6, 2.0) * unit,
                            center + QPointF(2.5, -1.8) * unit};
    painter.drawPolyline(stroke.data(), static_cast<int>(stroke.size()));
}

void Swatch::paintEvent(QPaintEvent *) {
    paintControl(*this, [this](QPainter &painter) {
        const Tokens &tokens = Look::of(*this).tokens();
        const double ratio = devicePixelRatioF();
        QBrush backdrop(picture(ratio));
        backdrop.setTransform(QTransform::fromScale(1 / ratio, 1 / ratio));
        painter.fillPath(shape().path(), backdrop);
        paintHairline(painter, shape(),
                      blend(tokens.hair, tokens.edge, isDown() ? 1 : m_interaction.hover()));
        if (isChecked()) {
            paintTick(painter);
        }
    });
}

} // namespace zeph::ui
