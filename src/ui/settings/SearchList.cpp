// SPDX-License-Identifier: MIT
#include "ui/settings/SearchList.h"

#include "ui/controls/Look.h"
#include "ui/controls/Paint.h"

#include <QGuiApplication>
#include <QPainter>
#include <QStyle>
#include <QStyledItemDelegate>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr double resultHeight = 38;
constexpr double placedResultHeight = 52;
constexpr double resultGap = 2;
constexpr double resultPadding = 12;
constexpr double resultRadius = 11;
constexpr int placeRole = Qt::UserRole;
const QString nothingFound = u"Nothing found."_s;

/// Paints a result; the stock one knows neither the second line nor our veils.
class ResultDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem &, const QModelIndex &index) const override {
        const bool isPlaced = !index.data(placeRole).toString().isEmpty();
        return {0, scaled(isPlaced ? placedResultHeight : resultHeight) + scaled(resultGap)};
    }

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override {
        const QWidget &list = *option.widget;
        const Tokens &tokens = Look::of(list).tokens();
        const QRect row = option.rect.adjusted(0, 0, 0, -scaled(resultGap));
        const bool isCurrent = (option.state & QStyle::State_Selected) != 0;
        if (isCurrent || (option.state & QStyle::State_MouseOver) != 0) {
            painter->setRenderHint(QPainter::Antialiasing);
            painter->setPen(Qt::NoPen);
            painter->setBrush(isCurrent ? tokens.fill : tokens.hover);
            painter->drawRoundedRect(row, scaled(resultRadius), scaled(resultRadius));
        }
        const QString place = index.data(placeRole).toString();
        const int lines =
            lineHeight(TypeRole::body) + (place.isEmpty() ? 0 : lineHeight(TypeRole::note));
        QRect line(row.x() + scaled(resultPadding), row.y() + (row.height() - lines) / 2,
                   row.width() - 2 * scaled(resultPadding), lineHeight(TypeRole::body));
        drawLine(*painter, line, index.data().toString(), TypeRole::body, tokens.ink);
        line.translate(0, line.height());
        line.setHeight(lineHeight(TypeRole::note));
        drawLine(*painter, line, place, TypeRole::note, tokens.second);
    }

private:
    static void drawLine(QPainter &painter, const QRect &line, const QString &text, TypeRole role,
                         const QColor &color) {
        const QFont used = ui::font(role);
        painter.setFont(used);
        painter.setPen(color);
        const QString shown = QFontMetrics(used).elidedText(text, Qt::ElideRight, line.width());
        const Qt::Alignment start =
            QStyle::visualAlignment(QGuiApplication::layoutDirection(), Qt::AlignLeft);
        painter.setLayoutDirection(Qt::LayoutDirectionAuto);
        painter.drawText(line, drawFlags(Qt::AlignVCenter | start | Qt::AlignAbsolute), shown);
    }
};

} // namespace

SearchList::SearchList(QWidget *parent) : QListWidget(parent) {
    setFrameShape(QFrame::NoFrame);
    setItemDelegate(new ResultDelegate(this));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setMouseTracking(true);
    viewport()->setAutoFillBackground(false);
    setAccessibleName(u"Search results"_s);
}

void SearchList::setRows(const QList<Row> &rows) {
    clear();
    for (const Row &row : rows) {
        auto *item = new QListWidgetItem(row.title, this);
        item->setData(placeRole, row.place);
        item->setToolTip(row.title);
        item->setData(Qt::AccessibleDescriptionRole, row.place);
    }
    setCurrentRow(rows.isEmpty() ? -1 : 0);
    setAccessibleDescription(rows.isEmpty() ? nothingFound : QString());
    viewport()->update();
}

void SearchList::moveCurrent(int by) {
    const int wanted = currentRow() + by;
    if (wanted >= 0 && wanted < count()) {
        setCurrentRow(wanted);
    }
}

void SearchList::paintEvent(QPaintEvent *event) {
    QListWidget::paintEvent(event);
    if (count() == 0) {
        QPainter painter(viewport());
        painter.setFont(ui::font(TypeRole::detail));
        painter.setPen(Look::of(*this).tokens().second);
        const QRect line(scaled(resultPadding), scaled(10),
                         viewport()->width() - 2 * scaled(resultPadding),
                         lineHeight(TypeRole::detail));
        painter.drawText(line, Qt::AlignVCenter | Qt::AlignLeading, nothingFound);
    }
}

} // namespace zeph::ui
