// SPDX-License-Identifier: MIT
#include "ui/integrations/RowList.h"

#include "ui/controls/Look.h"
#include "ui/controls/Paint.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollArea>
#include <QStyledItemDelegate>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr double roomAround = 24; // of the current row, when it is brought into view
constexpr double textInset = 20;
constexpr double ringRadius = 14;

} // namespace

/// Paints what all rows have: the line between two, the pointer's and the keyboard's place.
class RowPainter : public QStyledItemDelegate {
public:
    explicit RowPainter(RowList &list) : QStyledItemDelegate(&list), m_list(list) {}

    QSize sizeHint(const QStyleOptionViewItem &, const QModelIndex &index) const override {
        const int width = m_list.viewport()->width();
        return {width, m_list.heightOf(index.row(), width)};
    }

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override {
        const Tokens &tokens = Look::of(m_list).tokens();
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        if (option.state.testFlag(QStyle::State_MouseOver)) {
            painter->fillRect(option.rect, tokens.hover);
        }
        if (index.row() > 0) {
            const int inset = scaled(textInset);
            painter->fillRect(QRectF(option.rect.left() + inset, option.rect.top(),
                                     option.rect.width() - 2 * inset, hairline(*painter)),
                              tokens.line);
        }
        m_list.paintRow(*painter, option.rect, index.row());
        if (m_list.m_interaction.hasKeyboardFocus() && index == m_list.currentIndex()) {
            paintRingInside(*painter, {option.rect, static_cast<double>(scaled(ringRadius))},
                            tokens.focus);
        }
        painter->restore();
    }

private:
    RowList &m_list;
};

RowList::RowList(const QString &name, QWidget *parent) : QListWidget(parent) {
    setAccessibleName(name);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSelectionMode(QAbstractItemView::NoSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setResizeMode(QListView::Adjust);
    setMouseTracking(true);
    viewport()->setAutoFillBackground(false);
    m_interaction.watch(*viewport());
    setItemDelegate(new RowPainter(*this));
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    connect(this, &QListWidget::itemClicked, this,
            [this](const QListWidgetItem *item) { choose(row(item)); });
    connect(this, &QListWidget::currentRowChanged, this, [this] { revealCurrent(); });
}

int RowList::heightForWidth(int width) const {
    int height = 0;
    for (int row = 0; row < count(); ++row) {
        height += heightOf(row, width);
    }
    return height;
}

/// A layout asks again and again, and while items come and go also of what has no row any more.
int RowList::heightOf(int row, int width) const {
    if (m_isFilling) {
        return 0;
    }
    if (width != m_measuredWidth) {
        m_measuredWidth = width;
        m_heights.clear();
        for (int measured = 0; measured < count(); ++measured) {
            m_heights.push_back(rowHeight(measured, width));
        }
    }
    return m_heights.at(static_cast<std::size_t>(row));
}

QSize RowList::sizeHint() const {
    return {QListWidget::sizeHint().width(), heightForWidth(width())};
}

QSize RowList::minimumSizeHint() const {
    return {0, sizeHint().height()};
}

void RowList::setSentences(const QStringList &sentences) {
    m_isFilling = true;
    while (count() > sentences.size()) {
        delete takeItem(count() - 1);
    }
    for (int row = 0; row < sentences.size(); ++row) {
        if (row == count()) {
            addItem(sentences[row]);
        } else if (item(row)->text() != sentences[row]) {
            item(row)->setText(sentences[row]);
        }
    }
    m_isFilling = false;
    m_measuredWidth = -1;
    scheduleDelayedItemsLayout(); // heights may be others
    updateGeometry();
    viewport()->update();
}

/// What begins with a tag would otherwise be shown as rich text.
void RowList::setRowToolTip(int row, const QString &text) {
    item(row)->setToolTip(u"<p>%1</p>"_s.arg(text.toHtmlEscaped()));
}

void RowList::changeEvent(QEvent *event) {
    m_measuredWidth = -1; // the font may be another
    QListWidget::changeEvent(event);
}

void RowList::keyPressEvent(QKeyEvent *event) {
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        choose(currentRow());
        return;
    default:
        QListWidget::keyPressEvent(event);
    }
}

void RowList::focusInEvent(QFocusEvent *event) {
    QListWidget::focusInEvent(event);
    if (bringsIntoView(event->reason())) {
        // The pane brings the list as a whole into view, and only then the row can be.
        QMetaObject::invokeMethod(
            this, [this] { revealCurrent(); }, Qt::QueuedConnection);
    }
}

void RowList::wheelEvent(QWheelEvent *event) {
    event->ignore();
}

void RowList::choose(int row) {
    if (row >= 0 && row < count() && onChosen) {
        onChosen(row);
    }
}

/// The list itself never scrolls, so that the pane has to.
void RowList::revealCurrent() {
    if (!hasFocus() || currentItem() == nullptr || m_isFilling) {
        return;
    }
    for (QWidget *parent = parentWidget(); parent != nullptr; parent = parent->parentWidget()) {
        if (auto *area = dynamic_cast<QScrollArea *>(parent)) {
            const QRect place = visualItemRect(currentItem());
            const QPoint middle = viewport()->mapTo(area->widget(), place.center());
            area->ensureVisible(middle.x(), middle.y(), 0, place.height() / 2 + scaled(roomAround));
            return;
        }
    }
}

} // namespace zeph::ui
