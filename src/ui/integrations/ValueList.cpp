// SPDX-License-Identifier: MIT
#include "ui/integrations/ValueList.h"

#include "ui/controls/Look.h"

#include <QPainter>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr double valueRowHeight = 40;
constexpr double valueInset = 20;
constexpr double addAxis = 25; // the middle of the symbol, from the card's edge
constexpr double addSize = 16;
constexpr double columnGap = 12;
constexpr double pathShare = 3.0 / 5;
constexpr qsizetype longestPreview = 300;

QString sentenceOf(const ValueList::Row &row, std::size_t place, std::size_t count) {
    return u"%1, %2, %3, %4 of %5"_s.arg(
        row.path, row.preview, row.isChosen ? u"shown"_s : u"add"_s, QString::number(place),
        QString::number(count)); // at once: what is read may hold a marker
}

} // namespace

ValueList::ValueList(const QString &name, QWidget *parent) : RowList(name, parent) {}

void ValueList::setRows(std::vector<Row> rows) {
    for (Row &row : rows) {
        if (row.preview.size() > longestPreview) { // a whole document may be one value
            row.preview = row.preview.left(longestPreview) + u'…';
        }
    }
    if (rows == m_rows) {
        return;
    }
    m_rows = std::move(rows);
    QStringList sentences;
    for (std::size_t index = 0; index < m_rows.size(); ++index) {
        sentences << sentenceOf(m_rows[index], index + 1, m_rows.size());
    }
    setSentences(sentences);
    for (std::size_t index = 0; index < m_rows.size(); ++index) {
        setRowToolTip(static_cast<int>(index),
                      m_rows[index].path + u": "_s + m_rows[index].preview);
    }
}

int ValueList::rowHeight(int, int) const {
    return scaled(valueRowHeight);
}

/// Paths and values stay left to right whatever the language; only the columns change sides.
void ValueList::paintRow(QPainter &painter, const QRect &area, int row) const {
    const Row &words = m_rows[static_cast<std::size_t>(row)];
    const Look &look = Look::of(*this);
    const Tokens &tokens = look.tokens();
    const int inset = scaled(valueInset);
    const int symbolSize = scaled(addSize);
    const int symbolStart = area.width() - scaled(addAxis) - symbolSize / 2;
    const int textWidth = symbolStart - scaled(columnGap) - inset;
    const int pathWidth = static_cast<int>(textWidth * pathShare);
    const auto column = [&](int start, int width) {
        const bool isMirrored = layoutDirection() == Qt::RightToLeft;
        return QRect(area.left() + (isMirrored ? area.width() - start - width : start), area.top(),
                     width, area.height());
    };
    const auto write = [&](const QRect &place, TypeRole role, const QColor &ink,
                           const QString &text) {
        painter.setFont(ui::font(role));
        painter.setPen(ink);
        painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                         painter.fontMetrics().elidedText(text, Qt::ElideRight, place.width()));
    };
    write(column(inset, pathWidth - scaled(columnGap)), TypeRole::fixed, tokens.ink, words.path);
    write(column(inset + pathWidth, textWidth - pathWidth), TypeRole::detail, tokens.second,
          words.preview);
    const QRect symbol = column(symbolStart, symbolSize);
    painter.drawPixmap(symbol.left(), area.top() + (area.height() - symbolSize) / 2,
                       look.symbol(*this,
                                   words.isChosen ? u"checkmark.circle.fill"_s : u"plus.circle"_s,
                                   symbolSize, words.isChosen ? tokens.accent : tokens.ink));
}

} // namespace zeph::ui
