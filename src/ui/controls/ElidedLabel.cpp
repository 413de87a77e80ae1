// SPDX-License-Identifier: MIT
#include "ui/controls/ElidedLabel.h"

#include <QPainter>
#include <QStyle>

namespace zeph::ui {

namespace {

const QColor &inkOf(TextLabel::Ink ink, const Tokens &tokens) {
    switch (ink) {
    case TextLabel::Ink::second:
        return tokens.second;
    case TextLabel::Ink::third:
        return tokens.third;
    case TextLabel::Ink::error:
        return tokens.error;
    case TextLabel::Ink::ink:
        break;
    }
    return tokens.ink;
}

} // namespace

ElidedLabel::ElidedLabel(const QString &text, TypeRole role, TextLabel::Ink ink, QWidget *parent)
    : QLabel(text, parent), m_ink(ink) {
    setTextFormat(Qt::PlainText);
    setFont(ui::font(role));
    setMinimumHeight(lineHeight(role));
}

QSize ElidedLabel::minimumSizeHint() const {
    return {fontMetrics().horizontalAdvance(u'\u2026') * 2, QLabel::minimumSizeHint().height()};
}

QString ElidedLabel::shown() const {
    return fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
}

void ElidedLabel::resizeEvent(QResizeEvent *event) {
    QLabel::resizeEvent(event);
    setToolTip(shown() == text() ? QString() : text());
}

void ElidedLabel::paintEvent(QPaintEvent * /*event*/) {
    QPainter painter(this);
    painter.setPen(inkOf(m_ink, Look::of(*this).tokens()));
    const auto side = QStyle::visualAlignment(layoutDirection(), alignment());
    painter.drawText(contentsRect(), static_cast<int>(side | Qt::AlignVCenter), shown());
}

} // namespace zeph::ui
