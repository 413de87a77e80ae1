// SPDX-License-Identifier: MIT
#include "ui/integrations/CommandField.h"

#include "ui/controls/Look.h"
#include "ui/controls/Paint.h"

#include <QPainter>

namespace zeph::ui {

namespace {

constexpr int linesShown = 4;
constexpr double commandPadding = 10;
constexpr double commandRadius = 10;
constexpr double commandFocusWidth = 2;

} // namespace

CommandField::CommandField(const QString &name, QWidget *parent) : QPlainTextEdit(parent) {
    setAccessibleName(name);
    setFrameShape(QFrame::NoFrame);
    setFont(ui::font(TypeRole::fixed));
    setTabChangesFocus(true);
    setLayoutDirection(Qt::LeftToRight);
    // What is pasted may hold a key.
    setInputMethodHints(Qt::ImhSensitiveData | Qt::ImhNoPredictiveText | Qt::ImhNoAutoUppercase);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    document()->setDocumentMargin(scaled(commandPadding));
    viewport()->setAutoFillBackground(false);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void CommandField::forget() {
    setPlainText({});
    document()->clearUndoRedoStacks();
}

QSize CommandField::sizeHint() const {
    return {scaled(300), linesShown * lineHeight(TypeRole::fixed) + 2 * scaled(commandPadding)};
}

void CommandField::paintEvent(QPaintEvent *event) {
    {
        const Tokens &tokens = Look::of(*this).tokens();
        QPainter painter(viewport());
        painter.setRenderHint(QPainter::Antialiasing);
        const Rounded shape{viewport()->rect(), static_cast<double>(scaled(commandRadius))};
        painter.fillPath(shape.path(), tokens.field);
        if (hasFocus()) {
            strokeInside(painter, shape, scaled(commandFocusWidth), tokens.focus);
        } else {
            paintHairline(painter, shape, tokens.edge);
        }
    }
    QPlainTextEdit::paintEvent(event);
}

void CommandField::focusInEvent(QFocusEvent *event) {
    QPlainTextEdit::focusInEvent(event);
    viewport()->update();
}

void CommandField::focusOutEvent(QFocusEvent *event) {
    QPlainTextEdit::focusOutEvent(event);
    viewport()->update();
}

} // namespace zeph::ui
