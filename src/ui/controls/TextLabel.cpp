// SPDX-License-Identifier: MIT
#include "ui/controls/TextLabel.h"

#include "ui/controls/Paint.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>

#include <algorithm>
#include <utility>

namespace zeph::ui {

namespace {

constexpr double widestDetail = 440;
constexpr double widestHint = 600;
constexpr double leastWidth = 48;

QColor textColorOf(TextLabel::Ink ink, const Tokens &tokens) {
    switch (ink) {
    case TextLabel::Ink::ink:
        return tokens.ink;
    case TextLabel::Ink::second:
        return tokens.second;
    case TextLabel::Ink::third:
        return tokens.third;
    case TextLabel::Ink::error:
        return tokens.error;
    }
    return tokens.ink;
}

} // namespace

TextLabel::TextLabel(const QString &text, TypeRole role, Ink ink, QWidget *parent)
    : QLabel(text, parent), m_role(role), m_ink(ink) {
    setTextFormat(Qt::PlainText);
    setFont(ui::font(role));
    setWordWrap(true);
}

void TextLabel::setInk(Ink ink) {
    m_ink = ink;
    update();
}

void TextLabel::setElides(bool elides) {
    setMostLines(elides ? 1 : 0);
}

void TextLabel::setMostLines(int lines) {
    m_mostLines = lines;
    m_kept = {};
    updateGeometry();
    update();
}

void TextLabel::setSelectable(bool isSelectable) {
    setTextInteractionFlags(isSelectable ? Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard
                                         : Qt::NoTextInteraction);
}

bool TextLabel::isSelectable() const {
    return (textInteractionFlags() & Qt::TextSelectableByMouse) != 0;
}

int TextLabel::textWidth(int width) const {
    const bool isDetail = m_role == TypeRole::detail || m_role == TypeRole::note;
    return isDetail ? std::min(width, scaled(widestDetail)) : width;
}

const BalancedText &TextLabel::balanced(int width) const {
    const QString shown = text();
    const int wide = textWidth(width);
    const auto known = std::find_if(m_kept.begin(), m_kept.end(), [&](const Kept &kept) {
        return kept.balanced != nullptr && kept.text == shown && kept.balanced->holdsFor(wide);
    });
    if (known == m_kept.end()) {
        m_kept.back() = {
            shown, std::make_unique<BalancedText>(
                       shown, font(),
                       BalancedText::Limits{static_cast<double>(wide),
                                            static_cast<double>(lineHeight(m_role)), m_mostLines})};
        std::swap(m_kept.front(), m_kept.back());
    } else if (known != m_kept.begin()) {
        std::swap(m_kept.front(), m_kept.back());
    }
    return *m_kept.front().balanced;
}

QSize TextLabel::sizeHint() const {
    const BalancedText &wide = balanced(scaled(widestHint));
    return {wide.width(), wide.height()};
}

QSize TextLabel::minimumSizeHint() const {
    return {std::min(scaled(leastWidth), sizeHint().width()), lineHeight(m_role)};
}

int TextLabel::heightForWidth(int width) const {
    return balanced(width).height();
}

bool TextLabel::event(QEvent *event) {
    if (event->type() == QEvent::FontChange) {
        m_kept = {};
    }
    return QLabel::event(event);
}

void TextLabel::resizeEvent(QResizeEvent *event) {
    QLabel::resizeEvent(event);
    showWhole();
}

/// What does not fit is told by the tooltip.
void TextLabel::showWhole() {
    if (m_mostLines > 0) {
        const QString whole = balanced(width()).isElided() ? text() : QString();
        if (toolTip() != whole) {
            setToolTip(whole);
        }
    }
}

Qt::Alignment TextLabel::visualAlignment() const {
    return QStyle::visualAlignment(layoutDirection(), alignment());
}

QRectF TextLabel::textArea(const BalancedText &text) const {
    const double free = height() - text.height();
    double y = 0;
    if ((alignment() & Qt::AlignVCenter) != 0) {
        y = free / 2;
    } else if ((alignment() & Qt::AlignBottom) != 0) {
        y = free;
    }
    return {0.0, std::floor(std::max(0.0, y)), static_cast<double>(width()),
            static_cast<double>(text.height())};
}

void TextLabel::paintEvent(QPaintEvent *) {
    const BalancedText &lines = balanced(width());
    showWhole();
    paintControl(*this, [&](QPainter &painter) {
        const Tokens &tokens = Look::of(*this).tokens();
        QList<QTextLayout::FormatRange> marked;
        if (hasSelectedText()) {
            const int start = lines.toLayout(selectionStart());
            const int end =
                lines.toLayout(selectionStart() + static_cast<int>(selectedText().size()));
            QTextCharFormat format;
            QColor veil = tokens.focus;
            veil.setAlphaF(0.35F);
            format.setBackground(veil);
            marked.append({start, end - start, format});
        }
        painter.setPen(textColorOf(m_ink, tokens));
        lines.paint(painter, textArea(lines), visualAlignment(), marked);
    });
}

/// The stock label would look for the place in a layout of its own.
void TextLabel::mousePressEvent(QMouseEvent *event) {
    if (!isSelectable() || event->button() != Qt::LeftButton) {
        QLabel::mousePressEvent(event);
        return;
    }
    setFocus(Qt::MouseFocusReason);
    const BalancedText &lines = balanced(width());
    m_pressedAt = lines.positionAt(event->position(), textArea(lines), visualAlignment());
    setSelection(m_pressedAt, 0);
    update();
}

void TextLabel::mouseMoveEvent(QMouseEvent *event) {
    if (!isSelectable() || (event->buttons() & Qt::LeftButton) == 0) {
        QLabel::mouseMoveEvent(event);
        return;
    }
    const BalancedText &lines = balanced(width());
    const int at = lines.positionAt(event->position(), textArea(lines), visualAlignment());
    setSelection(std::min(at, m_pressedAt), std::abs(at - m_pressedAt));
    update();
}

void TextLabel::mouseReleaseEvent(QMouseEvent *event) {
    if (!isSelectable()) {
        QLabel::mouseReleaseEvent(event);
        return;
    }
    QClipboard *clipboard = QGuiApplication::clipboard();
    if (hasSelectedText() && clipboard->supportsSelection()) {
        clipboard->setText(selectedText(), QClipboard::Selection);
    }
}

} // namespace zeph::ui
