// SPDX-License-Identifier: MIT
#include "ui/controls/LinkLabel.h"

#include "ui/controls/Accessible.h"
#include "ui/controls/Look.h"

#include <QDesktopServices>
#include <QPainter>

#include <cmath>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr double linkHeight = 28;
constexpr double linkSymbol = 14;
constexpr double linkGap = 7;
constexpr double linkRadius = 8;
constexpr double quietLine = 0.5; // of the underline while it is not hovered

} // namespace

LinkLabel::LinkLabel(const QString &text, QUrl page, QWidget *parent)
    : QPushButton(parent),
      open([](const QUrl &url) { QDesktopServices::openUrl(url); }),
      m_page(std::move(page)) {
    announceAs(*this, QAccessible::Link); // before its text, which may be read out at once
    setText(text);
    setAutoDefault(true); // so that Enter presses it too
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setCursor(Qt::PointingHandCursor);
    connect(this, &QPushButton::clicked, this, [this] { open(m_page); });
}

double LinkLabel::textWidth() const {
    return std::ceil(QFontMetricsF(ui::font(TypeRole::detail)).horizontalAdvance(text()));
}

QSize LinkLabel::sizeHint() const {
    return {static_cast<int>(textWidth()) + scaled(linkGap) + scaled(linkSymbol),
            scaled(linkHeight)};
}

Rounded LinkLabel::ringShape() const {
    const double beside = 4 * scale();
    const double above = scale();
    return {QRectF(rect()).adjusted(-beside, above, beside, -above), (linkRadius - 2) * scale()};
}

void LinkLabel::paintEvent(QPaintEvent *) {
    paintControl(*this, [this](QPainter &painter) {
        const Tokens &tokens = Look::of(*this).tokens();
        const QColor ink = isDown() ? tokens.ink : tokens.accentInk;
        const QFont font = ui::font(TypeRole::detail);
        const QFontMetricsF metrics(font);
        painter.setFont(font);
        painter.setPen(ink);
        const QRectF text(0, 0, textWidth(), height());
        const QRectF place = mirrored(*this, text);
        painter.drawText(place, Qt::AlignCenter | Qt::TextSingleLine, this->text());

        const double baseline = text.center().y() - metrics.height() / 2 + metrics.ascent();
        const QRectF line(place.left(), std::round(baseline + 3 * scale()), place.width(),
                          std::round(std::max(1.0, scale())));
        const double strength = quietLine + (1 - quietLine) * m_interaction.hover();
        painter.fillRect(onPixels(painter, line), veiled(ink, strength));

        const double size = scaled(linkSymbol);
        const QRectF symbol(textWidth() + scaled(linkGap), (height() - size) / 2, size, size);
        paintSymbol(painter, *this, u"arrow.up.right.square"_s, mirrored(*this, symbol), ink);
    });
}

} // namespace zeph::ui
