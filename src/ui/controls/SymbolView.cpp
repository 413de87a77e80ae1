// SPDX-License-Identifier: MIT
#include "ui/controls/SymbolView.h"

#include "ui/controls/Look.h"

#include <QPainter>

namespace zeph::ui {

namespace {

QColor symbolColorOf(SymbolView::Ink ink, const Tokens &tokens) {
    switch (ink) {
    case SymbolView::Ink::ink:
        return tokens.ink;
    case SymbolView::Ink::second:
        return tokens.second;
    case SymbolView::Ink::third:
        return tokens.third;
    case SymbolView::Ink::accent:
        return tokens.accent;
    case SymbolView::Ink::ok:
        return tokens.ok;
    case SymbolView::Ink::error:
        return tokens.error;
    }
    return tokens.ink;
}

} // namespace

SymbolView::SymbolView(QString identifier, double size, Ink ink, QWidget *parent)
    : QWidget(parent), m_identifier(std::move(identifier)), m_size(size), m_ink(ink) {
    setFixedSize(scaled(size), scaled(size));
}

void SymbolView::set(const QString &identifier, Ink ink) {
    m_identifier = identifier;
    m_ink = ink;
    update();
}

void SymbolView::paintEvent(QPaintEvent *) {
    const Look &look = Look::of(*this);
    QPainter painter(this);
    painter.drawPixmap(
        0, 0,
        look.symbol(*this, m_identifier, scaled(m_size), symbolColorOf(m_ink, look.tokens())));
}

} // namespace zeph::ui
