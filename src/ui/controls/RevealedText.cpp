// SPDX-License-Identifier: MIT
#include "ui/controls/RevealedText.h"

#include "ui/controls/ControlStyle.h"

#include <QPainter>
#include <QTextLine>
#include <QTextOption>

#include <algorithm>

namespace zeph::ui {

void RevealedText::set(const Line &line, const QFont &font, const QRectF &place) {
    m_line = line;
    m_place = place;
    m_layout.setText(line.text);
    m_layout.setFont(font);
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    option.setTextDirection(Qt::LeftToRight); // keys are read so in every language
    m_layout.setTextOption(option);
    m_layout.beginLayout();
    const QTextLine laid = m_layout.createLine();
    m_layout.endLayout();

    const double wide = laid.naturalTextWidth();
    const double cursor = laid.cursorToX(line.cursor);
    const double room = place.width() - ControlStyle::textCursorWidth();
    m_scrolled = std::clamp(m_scrolled, std::max(0.0, cursor - room), std::max(0.0, cursor));
    m_scrolled = std::min(m_scrolled, std::max(0.0, wide - room));
    m_origin = {place.left() - m_scrolled, place.center().y() - laid.height() / 2};
}

void RevealedText::paint(QPainter &painter, const QPalette &palette, bool hasCursor) const {
    painter.save();
    painter.setClipRect(m_place);
    painter.setPen(palette.color(QPalette::Text));
    QList<QTextLayout::FormatRange> selections;
    if (m_line.selectionLength > 0) {
        QTextCharFormat format;
        format.setBackground(palette.brush(QPalette::Highlight));
        format.setForeground(palette.brush(QPalette::HighlightedText));
        selections.append({m_line.selectionStart, m_line.selectionLength, format});
    }
    m_layout.draw(&painter, m_origin, selections);
    if (hasCursor) {
        m_layout.drawCursor(&painter, m_origin, m_line.cursor, ControlStyle::textCursorWidth());
    }
    painter.restore();
}

int RevealedText::positionAt(double x) const {
    return m_layout.lineCount() == 0 ? 0 : m_layout.lineAt(0).xToCursor(x - m_origin.x());
}

} // namespace zeph::ui
