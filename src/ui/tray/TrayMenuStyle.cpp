// SPDX-License-Identifier: MIT
#include "ui/tray/TrayMenuStyle.h"

#include "ui/controls/Look.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyleOption>

#include <algorithm>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr double menuWidth = 264;
constexpr double menuPadding = 6;
constexpr double menuRadius = 12;
constexpr double rowHeight = 32;
constexpr double rowRadius = 8;
constexpr double rowPadding = 12;
constexpr double separatorHeight = 12;
constexpr double keyGap = 24; ///< at least, between a text and its key
constexpr float chosenAlpha = 0.13F;

struct RowText {
    QString text;
    QString key;
};

RowText textOf(const QStyleOptionMenuItem &item) {
    return {item.text.section(u'\t', 0, 0), item.text.section(u'\t', 1, 1)};
}

int widthOf(const QString &text, TypeRole role) {
    return QFontMetrics(font(role)).size(Qt::TextHideMnemonic, text).width();
}

void drawSeparator(QPainter &painter, const QRectF &row, const Tokens &tokens) {
    const double inset = scaled(rowPadding);
    const double hairline = 1 / painter.device()->devicePixelRatioF();
    painter.fillRect(
        QRectF(row.left() + inset, row.center().y(), row.width() - 2 * inset, hairline),
        tokens.hair);
}

void drawRow(QPainter &painter, const QStyleOptionMenuItem &item, const Tokens &tokens) {
    const bool isEnabled = item.state.testFlag(QStyle::State_Enabled);
    if (isEnabled && item.state.testFlag(QStyle::State_Selected)) {
        QColor chosen = tokens.ink;
        chosen.setAlphaF(chosenAlpha);
        painter.setPen(Qt::NoPen);
        painter.setBrush(chosen);
        painter.drawRoundedRect(QRectF(item.rect), scaled(rowRadius), scaled(rowRadius));
    }
    const int inset = scaled(rowPadding);
    const QRect inner = item.rect.adjusted(inset, 0, -inset, 0);
    const RowText row = textOf(item);
    const int start = static_cast<int>(QStyle::visualAlignment(item.direction, Qt::AlignLeft));
    const int end = static_cast<int>(QStyle::visualAlignment(item.direction, Qt::AlignRight));
    painter.setFont(font(TypeRole::body));
    painter.setPen(isEnabled ? tokens.ink : tokens.third);
    painter.drawText(inner, start | Qt::AlignVCenter | Qt::TextHideMnemonic, row.text);
    painter.setFont(font(TypeRole::detail));
    painter.setPen(tokens.second);
    painter.drawText(inner, end | Qt::AlignVCenter, row.key);
}

} // namespace

QPainterPath trayMenuOutline(const QRectF &bounds) {
    QPainterPath outline;
    outline.addRoundedRect(bounds, scaled(menuRadius), scaled(menuRadius));
    return outline;
}

// On a fixed style, so that the desktop's own has no say in the measures.
TrayMenuStyle::TrayMenuStyle() : QProxyStyle(u"fusion"_s) {}

int TrayMenuStyle::pixelMetric(PixelMetric metric, const QStyleOption *option,
                               const QWidget *widget) const {
    switch (metric) {
    case PM_MenuHMargin:
    case PM_MenuVMargin:
        return scaled(menuPadding);
    case PM_MenuPanelWidth:
    case PM_MenuDesktopFrameWidth:
        return 0;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

QSize TrayMenuStyle::sizeFromContents(ContentsType type, const QStyleOption *option,
                                      const QSize &size, const QWidget *widget) const {
    const auto *item = qstyleoption_cast<const QStyleOptionMenuItem *>(option);
    if (type != CT_MenuItem || item == nullptr) {
        return QProxyStyle::sizeFromContents(type, option, size, widget);
    }
    const int least = scaled(menuWidth) - 2 * scaled(menuPadding);
    if (item->menuItemType == QStyleOptionMenuItem::Separator) {
        return {least - m_keyWidth, scaled(separatorHeight)};
    }
    const RowText row = textOf(*item);
    const int key = row.key.isEmpty() ? 0 : scaled(keyGap) + widthOf(row.key, TypeRole::detail);
    const int text = widthOf(row.text, TypeRole::body) + 2 * scaled(rowPadding);
    return {std::max(least, text + key) - m_keyWidth, scaled(rowHeight)};
}

void TrayMenuStyle::drawControl(ControlElement element, const QStyleOption *option,
                                QPainter *painter, const QWidget *widget) const {
    const auto *item = qstyleoption_cast<const QStyleOptionMenuItem *>(option);
    if (element == CE_MenuEmptyArea || widget == nullptr) {
        return; // the panel is painted whole
    }
    if (element != CE_MenuItem || item == nullptr) {
        QProxyStyle::drawControl(element, option, painter, widget);
        return;
    }
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const Tokens &tokens = Look::of(*widget).tokens();
    if (item->menuItemType == QStyleOptionMenuItem::Separator) {
        drawSeparator(*painter, QRectF(item->rect), tokens);
    } else {
        drawRow(*painter, *item, tokens);
    }
    painter->restore();
}

void TrayMenuStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option,
                                  QPainter *painter, const QWidget *widget) const {
    if (element == PE_FrameMenu) {
        return; // the panel has its edge
    }
    if (element != PE_PanelMenu || widget == nullptr) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    const Tokens &tokens = Look::of(*widget).tokens();
    const double hairline = 1 / painter->device()->devicePixelRatioF();
    const double inset = hairline / 2;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(tokens.menu);
    painter->setPen(QPen(tokens.hair, hairline));
    painter->drawPath(
        trayMenuOutline(QRectF(widget->rect()).adjusted(inset, inset, -inset, -inset)));
    painter->restore();
}

} // namespace zeph::ui
