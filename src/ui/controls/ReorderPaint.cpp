// SPDX-License-Identifier: MIT
#include "ui/controls/Look.h"
#include "ui/controls/Paint.h"
#include "ui/controls/ReorderList.h"

#include <QPainter>
#include <QScrollBar>
#include <QStyle>

#include <algorithm>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr double reorderRadius = 16;
constexpr double reorderSymbolStart = 16;
constexpr double reorderSymbol = 20;
constexpr double reorderText = 50;
constexpr double reorderLineStart = 56;
constexpr double reorderLineEnd = 20;
constexpr double handleSize = 18;
constexpr double handleAxis = 25;
constexpr double handleToMark = 12;
constexpr double slotLine = 2;
constexpr double slotDot = 4;
constexpr double slotInset = 12;

} // namespace

void ReorderList::paintRow(QPainter &painter, const QRectF &area, int row) const {
    const Look &look = Look::of(*this);
    const Tokens &tokens = look.tokens();
    painter.setLayoutDirection(Qt::LayoutDirectionAuto);
    const Row &words = m_rows[static_cast<std::size_t>(row)];
    const bool isHeld = m_hand && m_hand->row == row;
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    const auto place = [&](double x, double width, double height) {
        const double left = isMirrored ? area.width() - x - width : x;
        return QRectF(area.x() + left, area.center().y() - height / 2, width, height);
    };
    const double side = scaled(reorderSymbol);
    painter.drawPixmap(place(scaled(reorderSymbolStart), side, side).topLeft(),
                       look.symbol(*this, words.symbol, side, tokens.second));
    const double handle = scaled(handleSize);
    const double handleStart = area.width() - scaled(handleAxis) - handle / 2;
    painter.drawPixmap(
        place(handleStart, handle, handle).topLeft(),
        look.symbol(*this, u"line.3.horizontal"_s, handle, isHeld ? tokens.ink : tokens.second));

    const QFont markFont = ui::font(TypeRole::detail);
    const int markWidth =
        words.mark.isEmpty() ? 0 : QFontMetrics(markFont).horizontalAdvance(words.mark) + 1;
    const double markStart = handleStart - scaled(handleToMark) - markWidth;
    const QFont titleFont = ui::font(TypeRole::row);
    const double titleWidth = std::max(0.0, markStart - scaled(handleToMark) - scaled(reorderText));
    const int start = drawFlags(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft) |
                                Qt::AlignAbsolute | Qt::AlignVCenter);
    painter.setFont(titleFont);
    painter.setPen(tokens.ink);
    painter.drawText(place(scaled(reorderText), titleWidth, area.height()), start,
                     QFontMetricsF(titleFont).elidedText(words.title, Qt::ElideRight, titleWidth));
    painter.setFont(markFont);
    painter.setPen(tokens.second);
    painter.drawText(place(markStart, markWidth, area.height()), start, words.mark);
    painter.setPen(Qt::NoPen);
}

/// Between rows that lie, and the one where the row in the hand would be dropped.
void ReorderList::paintLines(QPainter &painter) const {
    const Tokens &tokens = Look::of(*this).tokens();
    const double height = rowHeight();
    const double width = viewport()->width();
    for (int place = 1; place < count(); ++place) {
        const bool isAtSlot = m_hand && (place == m_hand->place || place == m_hand->place + 1);
        if (!isAtSlot) {
            const QRectF line(scaled(reorderLineStart), place * height,
                              width - scaled(reorderLineStart) - scaled(reorderLineEnd),
                              hairline(painter));
            painter.fillRect(onPixels(painter, mirrored(*viewport(), line)), tokens.line);
        }
    }
    if (!m_hand) {
        return;
    }
    const double dot = slotDot * scale();
    const double y = std::max(m_hand->place * height, dot);
    const double thick = slotLine * scale();
    const double inset = slotInset * scale();
    const QRectF line(inset, y - thick / 2, width - 2 * inset, thick);
    const QRectF knob(inset - dot, y - dot, 2 * dot, 2 * dot);
    painter.fillPath(pill(mirrored(*viewport(), line)).path(), tokens.accent);
    painter.fillPath(pill(mirrored(*viewport(), knob)).path(), tokens.accent);
}

void ReorderList::paintEvent(QPaintEvent *) {
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    const Look &look = Look::of(*this);
    const Tokens &tokens = look.tokens();
    const double height = rowHeight();
    const double width = viewport()->width();
    painter.translate(0, -verticalScrollBar()->value());
    const Rounded whole{QRectF(0, 0, width, height * count()), reorderRadius * scale()};
    painter.fillPath(whole.path(), tokens.card);
    if (look.appearance() == Appearance::highContrast) {
        paintHairline(painter, whole, tokens.ink);
    }
    for (int row = 0; row < count(); ++row) {
        if (m_hand && m_hand->row == row) {
            continue;
        }
        const QRectF area(0, yOf(row), width, height);
        if (row == m_hovered && !m_hand) {
            painter.save();
            painter.setClipPath(whole.path());
            painter.fillRect(area, tokens.hover);
            painter.restore();
        }
        paintRow(painter, area, row);
        if (row == currentRow() && !m_hand && m_interaction.hasKeyboardFocus()) {
            paintRingInside(painter, {area, (reorderRadius - 3) * scale()}, tokens.focus);
        }
    }
    paintLines(painter);
}

} // namespace zeph::ui
