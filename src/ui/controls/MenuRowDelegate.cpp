// SPDX-License-Identifier: MIT
#include "ui/controls/MenuRowDelegate.h"

#include "ui/controls/Look.h"
#include "ui/controls/Paint.h"

#include <QComboBox>
#include <QPainter>

#include <cmath>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr double rowHeight = 32;
constexpr double rowRadius = 8;
constexpr double textInset = 36;
constexpr double endInset = 16;
constexpr double chosenSymbol = 16;
constexpr double chosenInset = 11;

} // namespace

MenuRowDelegate::MenuRowDelegate(QComboBox &box) : QStyledItemDelegate(&box), m_box(&box) {}

QSize MenuRowDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &index) const {
    const QFontMetricsF metrics(ui::font(TypeRole::body));
    const double wide = metrics.horizontalAdvance(index.data().toString());
    return {static_cast<int>(std::ceil(wide)) + scaled(textInset) + scaled(endInset),
            scaled(rowHeight)};
}

void MenuRowDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                            const QModelIndex &index) const {
    const Tokens &tokens = Look::of(*m_box).tokens();
    const QRectF row(option.rect);
    const auto inRow = [&](double inset, double wide) {
        const bool isMirrored = option.direction == Qt::RightToLeft;
        const double left = isMirrored ? row.right() - inset - wide : row.left() + inset;
        return QRectF(left, row.top(), wide, row.height());
    };
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (option.state.testFlag(QStyle::State_Selected)) {
        painter->fillPath(Rounded{row, rowRadius * scale()}.path(), tokens.hair);
    }
    if (index.row() == m_box->currentIndex()) {
        const double size = scaled(chosenSymbol);
        QRectF place = inRow(scaled(chosenInset), size);
        place.setTop(row.center().y() - size / 2);
        place.setHeight(size);
        paintSymbol(*painter, *m_box, u"checkmark.circle.fill"_s, place, tokens.ink);
    }
    const QFontMetricsF metrics(ui::font(TypeRole::body));
    const QRectF text =
        inRow(scaled(textInset), row.width() - scaled(textInset) - scaled(endInset) / 2.0);
    const bool isMirrored = option.direction == Qt::RightToLeft;
    painter->setFont(ui::font(TypeRole::body));
    painter->setPen(tokens.ink);
    painter->drawText(
        text, Qt::AlignVCenter | Qt::TextSingleLine | (isMirrored ? Qt::AlignRight : Qt::AlignLeft),
        metrics.elidedText(index.data().toString(), Qt::ElideRight, text.width()));
    painter->restore();
}

} // namespace zeph::ui
