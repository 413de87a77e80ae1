// SPDX-License-Identifier: MIT
#include "ui/controls/TextField.h"

#include "ui/controls/ControlStyle.h"
#include "ui/controls/Look.h"

#include <QPainter>

namespace zeph::ui {

namespace {

constexpr double fieldRadius = 10;
constexpr double fieldPadding = 12;
constexpr double strongEdge = 2; // in use, or wrong
constexpr int ownMargin = 2;     // that QLineEdit adds to the text's margins

} // namespace

void paintField(QPainter &painter, const QWidget &field, const FieldState &state) {
    const Tokens &tokens = Look::of(field).tokens();
    const Rounded shape = fieldShape(field);
    painter.fillPath(shape.path(), tokens.field);
    if (state.isWrong || state.hasFocus) {
        strokeInside(painter, shape, strongEdge * scale(),
                     state.isWrong ? tokens.error : tokens.focus);
        return;
    }
    const QColor edge = blend(tokens.edge, tokens.second, state.hover);
    strokeInside(painter, {onPixels(painter, shape.rect), shape.radius}, scale(), edge);
}

Rounded fieldShape(const QWidget &field) {
    return {field.rect(), fieldRadius * scale()};
}

TextField::TextField(const QString &placeholder, QWidget *parent) : QLineEdit(parent) {
    ControlStyle::dress(*this);
    setPlaceholderText(placeholder);
    setFrame(false);
    setFont(ui::font(TypeRole::body));
    const int margin = scaled(fieldPadding) - ownMargin;
    setTextMargins(margin, 0, margin, 0);
}

void TextField::setWrong(bool isWrong) {
    m_isWrong = isWrong;
    m_interaction.updateRing();
    update();
}

QSize TextField::sizeHint() const {
    return {scaled(210), scaled(36)};
}

QSize TextField::minimumSizeHint() const {
    return {scaled(80), scaled(36)};
}

void TextField::paintFrame() {
    paintControl(*this, [this](QPainter &painter) {
        paintField(painter, *this, {m_interaction.hover(), hasFocus(), m_isWrong});
    });
}

void TextField::paintEvent(QPaintEvent *event) {
    paintFrame();
    QLineEdit::paintEvent(event);
}

} // namespace zeph::ui
