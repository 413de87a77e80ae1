// SPDX-License-Identifier: MIT
#include "ui/controls/SideBar.h"

#include "ui/controls/Look.h"
#include "ui/controls/Paint.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>

#include <algorithm>
#include <utility>

namespace zeph::ui {

namespace {

constexpr double tabWidth = 180;
constexpr double tabHeight = 38;
constexpr double tabGap = 2;
constexpr double tabRadius = 11;
constexpr double tabSymbolStart = 12;
constexpr double tabSymbolSize = 18;
constexpr double tabTextStart = 42;
constexpr double tabTextEnd = 12;
constexpr double markBarWidth = 3;
constexpr double markBarHeight = 18;

} // namespace

SideBar::SideBar(const std::vector<Tab> &tabs, QWidget *parent)
    : QTabBar(parent), m_interaction(*this, [this] { return row(currentIndex()); }) {
    setShape(QTabBar::RoundedWest);
    setUsesScrollButtons(false);
    setExpanding(false);
    setDrawBase(false);
    setElideMode(Qt::ElideNone);
    setMouseTracking(true);
    for (const Tab &tab : tabs) {
        m_symbols.push_back(tab.symbol);
        addTab(tab.title);
    }
    connect(this, &QTabBar::currentChanged, this, [this] { m_interaction.updateRing(); });
}

QSize SideBar::tabSizeHint(int) const {
    return {scaled(tabWidth), scaled(tabHeight) + scaled(tabGap)};
}

QSize SideBar::minimumTabSizeHint(int index) const {
    return tabSizeHint(index);
}

Rounded SideBar::row(int index) const {
    QRectF place(tabRect(index));
    place.setX(0);
    place.setWidth(width());
    place.setHeight(scaled(tabHeight));
    return {place, tabRadius * scale()};
}

void SideBar::keyPressEvent(QKeyEvent *event) {
    const int last = count() - 1;
    switch (event->key()) {
    case Qt::Key_Up:
        setCurrentIndex(std::max(0, currentIndex() - 1));
        break;
    case Qt::Key_Down:
        setCurrentIndex(std::min(last, currentIndex() + 1));
        break;
    case Qt::Key_Home:
        setCurrentIndex(0);
        break;
    case Qt::Key_End:
        setCurrentIndex(last);
        break;
    default:
        QTabBar::keyPressEvent(event);
    }
}

/// The stock bar would change the tab.
void SideBar::wheelEvent(QWheelEvent *event) {
    event->ignore();
}

void SideBar::mouseMoveEvent(QMouseEvent *event) {
    QTabBar::mouseMoveEvent(event);
    if (std::exchange(m_hovered, tabAt(event->pos())) != m_hovered) {
        update();
    }
}

void SideBar::leaveEvent(QEvent *event) {
    QTabBar::leaveEvent(event);
    m_hovered = -1;
    update();
}

void SideBar::paintRow(QPainter &painter, int index) const {
    const Look &look = Look::of(*this);
    const Tokens &tokens = look.tokens();
    const Rounded shape = row(index);
    const bool isCurrent = index == currentIndex();
    if (isCurrent) {
        painter.fillPath(shape.path(), tokens.fill);
        const QRectF bar(0, shape.rect.center().y() - scaled(markBarHeight) / 2.0,
                         scaled(markBarWidth), scaled(markBarHeight));
        painter.fillPath(pill(mirrored(*this, bar)).path(), tokens.accent);
    } else if (index == m_hovered) {
        painter.fillPath(shape.path(), tokens.hover);
    }
    const bool isInked = isCurrent || index == m_hovered;
    const QColor ink = isInked ? tokens.ink : tokens.second;
    const double side = scaled(tabSymbolSize);
    const QRectF symbol(scaled(tabSymbolStart), shape.rect.center().y() - side / 2, side, side);
    painter.drawPixmap(mirrored(*this, symbol).topLeft(),
                       look.symbol(*this, m_symbols[static_cast<std::size_t>(index)], side, ink));
    const QFont used = ui::font(isCurrent ? TypeRole::bodyStrong : TypeRole::body);
    const int textWidth = width() - scaled(tabTextStart) - scaled(tabTextEnd);
    const QRectF text(scaled(tabTextStart), shape.rect.y(), textWidth, shape.rect.height());
    painter.setFont(used);
    painter.setPen(ink);
    painter.drawText(mirrored(*this, text),
                     drawFlags(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft) |
                               Qt::AlignAbsolute | Qt::AlignVCenter),
                     QFontMetrics(used).elidedText(tabText(index), Qt::ElideRight, textWidth));
    painter.setPen(Qt::NoPen);
}

void SideBar::paintEvent(QPaintEvent *) {
    paintControl(*this, [this](QPainter &painter) {
        painter.setLayoutDirection(Qt::LayoutDirectionAuto);
        for (int index = 0; index < count(); ++index) {
            paintRow(painter, index);
        }
    });
}

} // namespace zeph::ui
