// SPDX-License-Identifier: MIT
#include "ui/controls/ControlStyle.h"

#include "ui/controls/Look.h"

#include <QStyleFactory>
#include <QStyleOption>
#include <QWidget>

#include <algorithm>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr double partWidth = 36;  // of what opens a list or a calendar
constexpr double partMargin = 10; // of the text before it
constexpr double cursorWidth = 1.5;
constexpr char16_t passwordDot = u'\u2022';

} // namespace

ControlStyle::ControlStyle() : QProxyStyle(QStyleFactory::create(u"Fusion"_s)) {}

void ControlStyle::dress(QWidget &widget) {
    auto *style = new ControlStyle;
    style->setParent(&widget);
    widget.setStyle(style);
}

void ControlStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option,
                                 QPainter *painter, const QWidget *widget) const {
    if (element != PE_PanelLineEdit && element != PE_FrameLineEdit &&
        element != PE_FrameFocusRect && element != PE_IndicatorArrowDown) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

int ControlStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                            QStyleHintReturn *data) const {
    switch (hint) {
    case SH_LineEdit_PasswordCharacter:
        return passwordDot;
    case SH_ComboBox_Popup: // would add arrows to scroll by
        return 0;
    case SH_ComboBox_ListMouseTracking:
        return 1;
    default:
        return QProxyStyle::styleHint(hint, option, widget, data);
    }
}

int ControlStyle::pixelMetric(PixelMetric metric, const QStyleOption *option,
                              const QWidget *widget) const {
    return metric == PM_TextCursorWidth ? textCursorWidth()
                                        : QProxyStyle::pixelMetric(metric, option, widget);
}

int ControlStyle::textCursorWidth() {
    return std::max(1, scaled(cursorWidth));
}

QRect ControlStyle::subControlRect(ComplexControl control, const QStyleOptionComplex *option,
                                   SubControl part, const QWidget *widget) const {
    if (control != CC_ComboBox) {
        return QProxyStyle::subControlRect(control, option, part, widget);
    }
    const QRect whole = option->rect;
    const int opener = scaled(partWidth);
    switch (part) {
    case SC_ComboBoxArrow:
        return visualRect(option->direction, whole,
                          whole.adjusted(whole.width() - opener, 0, 0, 0));
    case SC_ComboBoxEditField:
        return visualRect(option->direction, whole,
                          whole.adjusted(scaled(partMargin), 0, -opener, 0));
    default:
        return whole;
    }
}

} // namespace zeph::ui
