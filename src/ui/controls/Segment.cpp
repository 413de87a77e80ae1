// SPDX-License-Identifier: MIT
#include "ui/controls/Segment.h"

#include "ui/controls/Look.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace zeph::ui {

namespace {

constexpr double segmentLetters = 13; // as TypeRole::segment is set

} // namespace

Segment::Segment(const QString &text, const Setting &setting, QWidget *parent)
    : QRadioButton(text, parent), m_setting(setting) {
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
}

QFont Segment::fontWhen(bool isChosen) const {
    if (m_setting.letterSize <= 0) {
        return ui::font(isChosen ? TypeRole::button : TypeRole::segment);
    }
    QFont font = ui::font(TypeRole::segment);
    font.setPointSizeF(font.pointSizeF() * m_setting.letterSize / segmentLetters);
    if (isChosen) {
        font.setWeight(QFont::DemiBold); // a letter alone needs more than a word
    }
    return font;
}

/// The wider of the two, so that nothing moves when another one is chosen.
double Segment::textWidth() const {
    if (m_measured.text != text() || m_measured.scale != scale()) {
        m_measured = {text(), scale(),
                      std::max(QFontMetricsF(fontWhen(true)).horizontalAdvance(text()),
                               QFontMetricsF(fontWhen(false)).horizontalAdvance(text()))};
    }
    return m_measured.width;
}

QSize Segment::sizeHint() const {
    const int padded = static_cast<int>(std::ceil(textWidth())) + 2 * scaled(m_setting.padding);
    return {std::max(padded, scaled(m_setting.least)), scaled(m_setting.height)};
}

void Segment::paintEvent(QPaintEvent *) {
    paintControl(*this, [this](QPainter &painter) {
        const Tokens &tokens = Look::of(*this).tokens();
        painter.setFont(fontWhen(isChecked()));
        painter.setPen(isChecked() ? tokens.ink
                                   : blend(tokens.second, tokens.ink, m_interaction.hover()));
        painter.drawText(QRectF(rect()), Qt::AlignCenter | Qt::TextSingleLine, text());
    });
}

} // namespace zeph::ui
