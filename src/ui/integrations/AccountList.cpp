// SPDX-License-Identifier: MIT
#include "ui/integrations/AccountList.h"

#include "ui/controls/Look.h"
#include "ui/controls/Paint.h"

#include <QPainter>

#include <algorithm>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr double leastRowHeight = 64;
constexpr double rowInset = 20;
constexpr double rowPadding = 14;
constexpr double statusGap = 3;
constexpr double stateGap = 16; // between texts and the word at the end
constexpr double markSize = 16;
constexpr double markGap = 8;
constexpr double chevronGap = 10;
constexpr int mostErrorLines = 4;

QString sentenceOf(const AccountList::Row &row, std::size_t place, std::size_t count) {
    QStringList parts{row.name};
    if (!row.status.isEmpty()) {
        parts << row.status;
    }
    parts << row.state << u"%1 of %2"_s.arg(place).arg(count);
    return parts.join(u", "_s);
}

} // namespace

/// Where the parts of a row stand, left to right.
struct AccountList::Places {
    QRect name;
    QRect mark;
    QRect status;
    QRect state;
    QRect chevron;
};

AccountList::AccountList(const QString &name, QWidget *parent) : RowList(name, parent) {}

void AccountList::setRows(std::vector<Row> rows) {
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
        setRowToolTip(static_cast<int>(index), m_rows[index].name);
    }
}

AccountList::Places AccountList::places(const Row &row, const QRect &area) const {
    const QFontMetrics stateMetrics(ui::font(TypeRole::detail));
    const int end = area.right() + 1 - scaled(rowInset);
    const int size = scaled(markSize);
    Places places;
    places.chevron = {end - size, area.center().y() - size / 2 + 1, size, size};
    const int stateWidth = stateMetrics.horizontalAdvance(row.state);
    places.state = {places.chevron.left() - scaled(chevronGap) - stateWidth, area.top(), stateWidth,
                    area.height()};
    const int start = area.left() + scaled(rowInset);
    const int nameHeight = lineHeight(TypeRole::row);
    const int textEnd = places.state.left() - scaled(stateGap);
    places.name = {start, area.top() + scaled(rowPadding), textEnd - start, nameHeight};
    if (row.status.isEmpty()) {
        places.name.moveTop(area.center().y() - nameHeight / 2 + 1);
        return places;
    }
    const int line = lineHeight(TypeRole::detail);
    const int top = places.name.bottom() + 1 + scaled(statusGap);
    places.mark = {start, top + (line - size) / 2, size, size};
    const int statusStart = start + size + scaled(markGap);
    const int width = std::max(0, textEnd - statusStart);
    const int needed =
        stateMetrics.boundingRect({0, 0, width, 0}, Qt::TextWordWrap, row.status).height();
    const int lines = std::clamp(needed / std::max(1, stateMetrics.lineSpacing()), 1,
                                 row.isError ? mostErrorLines : 1);
    places.status = {statusStart, top, width, lines * line};
    return places;
}

int AccountList::rowHeight(int row, int width) const {
    const Places parts = places(m_rows[static_cast<std::size_t>(row)], {0, 0, width, 0});
    const int content = parts.status.isNull() ? 0 : parts.status.bottom() + 1;
    return std::max(scaled(leastRowHeight), content + scaled(rowPadding));
}

void AccountList::paintRow(QPainter &painter, const QRect &area, int row) const {
    const Row &words = m_rows[static_cast<std::size_t>(row)];
    const Look &look = Look::of(*this);
    const Tokens &tokens = look.tokens();
    const Places parts = places(words, area);
    const auto mirror = [this](const QRect &place) {
        return mirrored(*viewport(), place).toRect();
    };
    const auto leading =
        QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter);

    painter.setFont(ui::font(TypeRole::row));
    painter.setPen(tokens.ink);
    painter.drawText(
        mirror(parts.name), static_cast<int>(leading.toInt()) | Qt::TextSingleLine,
        painter.fontMetrics().elidedText(words.name, Qt::ElideRight, parts.name.width()));
    painter.setFont(ui::font(TypeRole::detail));
    if (!words.status.isEmpty()) {
        const QColor &ink = words.isError ? tokens.error : tokens.ok;
        const QString mark = words.isError ? u"xmark.circle"_s : u"checkmark.circle.fill"_s;
        painter.drawPixmap(mirror(parts.mark).topLeft(),
                           look.symbol(*this, mark, parts.mark.width(), ink));
        painter.setPen(words.isError ? tokens.error : tokens.ink);
        const bool wraps = parts.status.height() > lineHeight(TypeRole::detail);
        const QString text = wraps ? words.status
                                   : painter.fontMetrics().elidedText(words.status, Qt::ElideRight,
                                                                      parts.status.width());
        painter.drawText(mirror(parts.status),
                         static_cast<int>(leading.toInt()) | (wraps ? Qt::TextWordWrap : 0), text);
    }
    painter.setPen(tokens.second);
    painter.drawText(mirror(parts.state), Qt::AlignCenter, words.state);
    const QRect chevron = mirror(parts.chevron);
    painter.drawPixmap(chevron.topLeft(),
                       look.symbol(*this, u"chevron.right"_s, chevron.width(), tokens.second));
}

} // namespace zeph::ui
