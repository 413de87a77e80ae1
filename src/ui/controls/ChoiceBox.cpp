// SPDX-License-Identifier: MIT
#include "ui/controls/ChoiceBox.h"

#include "ui/controls/Accessible.h"
#include "ui/controls/ControlStyle.h"
#include "ui/controls/Look.h"

#include <QAbstractItemView>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace zeph::ui {

namespace {

constexpr double boxPadding = 16;
constexpr double chevronInset = 19; // of its centre from the trailing edge
constexpr double chevronRoom = 34;

} // namespace

ChoiceBox::ChoiceBox(const QStringList &texts, QWidget *parent)
    : QComboBox(parent), m_popup(*this) {
    ControlStyle::dress(*this);
    announceAs(*this, QAccessible::ComboBox);
    connect(this, &QComboBox::currentTextChanged, this, [this] {
        QAccessibleEvent changed(this, QAccessible::NameChanged);
        QAccessible::updateAccessibility(&changed);
    });
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    addItems(texts);
}

QSize ChoiceBox::sizeHint() const {
    const QFontMetricsF metrics(ui::font(TypeRole::body));
    double wide = 0;
    for (int index = 0; index < count(); ++index) {
        wide = std::max(wide, metrics.horizontalAdvance(itemText(index)));
    }
    return {static_cast<int>(std::ceil(wide)) + scaled(boxPadding) + scaled(chevronRoom),
            scaled(34)};
}

QSize ChoiceBox::minimumSizeHint() const {
    return {scaled(96), scaled(34)};
}

void ChoiceBox::showPopup() {
    QComboBox::showPopup();
    if (view()->isVisible()) {
        m_popup.place();
        m_popup.fadeIn();
    }
}

void ChoiceBox::wheelEvent(QWheelEvent *event) {
    event->ignore();
}

void ChoiceBox::paintEvent(QPaintEvent *) {
    paintControl(*this, [this](QPainter &painter) {
        const Tokens &tokens = Look::of(*this).tokens();
        const Rounded shape = pill(rect());
        const double hover = m_interaction.hover();
        painter.fillPath(shape.path(), view()->isVisible()
                                           ? tokens.press
                                           : blend(tokens.button, tokens.buttonHover, hover));
        paintHairline(painter, shape, tokens.hair);

        const QFontMetricsF metrics(ui::font(TypeRole::body));
        const QRectF text(scaled(boxPadding), 0, width() - scaled(boxPadding) - scaled(chevronRoom),
                          height());
        const bool isMirrored = layoutDirection() == Qt::RightToLeft;
        painter.setFont(ui::font(TypeRole::body));
        painter.setPen(tokens.ink);
        painter.drawText(mirrored(*this, text),
                         Qt::AlignVCenter | Qt::TextSingleLine |
                             (isMirrored ? Qt::AlignRight : Qt::AlignLeft),
                         metrics.elidedText(currentText(), Qt::ElideRight, text.width() + 1));
        const QRectF chevron(width() - scaled(chevronInset), height() / 2.0, 0, 0);
        paintChevronDown(painter, mirrored(*this, chevron).topLeft(), tokens.third);
    });
}

} // namespace zeph::ui
