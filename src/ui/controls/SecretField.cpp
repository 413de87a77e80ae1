// SPDX-License-Identifier: MIT
#include "ui/controls/SecretField.h"

#include "ui/controls/IconButton.h"
#include "ui/controls/Look.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr double eyeMargin = 3; // from the field's edge
constexpr int lineMargin = 2;   // that QLineEdit adds to the text's margins

} // namespace

SecretField::SecretField(const QString &placeholder, QWidget *parent)
    : TextField(placeholder, parent), m_eye(new IconButton(u"eye"_s, u"Show"_s, this)) {
    setEchoMode(QLineEdit::Password);
    setInputMethodHints(Qt::ImhHiddenText | Qt::ImhSensitiveData | Qt::ImhNoPredictiveText |
                        Qt::ImhNoAutoUppercase);
    m_eye->setCursor(Qt::ArrowCursor);
    m_eye->setFocusPolicy(Qt::TabFocus); // a click leaves the focus in the field
    connect(m_eye, &QPushButton::clicked, this, [this] { reveal(!m_isRevealed); });
    connect(this, &QLineEdit::textChanged, this, [this] { followText(); });
    followText();
}

void SecretField::followText() {
    m_eye->setVisible(!text().isEmpty());
    if (text().isEmpty()) {
        reveal(false);
        // What was typed is forgotten with it: nothing is left to undo.
        const QSignalBlocker silence(this);
        setText({});
    }
    placeEye();
}

void SecretField::reveal(bool isWanted) {
    m_isRevealed = isWanted;
    m_eye->setSymbol(isWanted ? u"eye.slash"_s : u"eye"_s);
    m_eye->setName(isWanted ? u"Hide"_s : u"Show"_s);
    update();
}

void SecretField::placeEye() {
    const QSize size = m_eye->sizeHint();
    const int margin = scaled(eyeMargin);
    const QRect place(width() - margin - size.width(), (height() - size.height()) / 2, size.width(),
                      size.height());
    m_eye->setGeometry(mirrored(*this, place).toRect());
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    const int beyond = m_eye->isHidden() ? m_usualMargin : size.width() + margin;
    setTextMargins(isMirrored ? beyond : m_usualMargin, 0, isMirrored ? m_usualMargin : beyond, 0);
}

QVariant SecretField::inputMethodQuery(Qt::InputMethodQuery property) const {
    switch (property) {
    case Qt::ImSurroundingText:
    case Qt::ImCurrentSelection:
    case Qt::ImTextBeforeCursor:
    case Qt::ImTextAfterCursor:
        return QString();
    default:
        return TextField::inputMethodQuery(property);
    }
}

void SecretField::layText() {
    const QMargins margins = textMargins() + QMargins(lineMargin, 0, lineMargin, 0);
    m_revealed.set({text(), cursorPosition(), std::max(0, selectionStart()), selectionLength()},
                   font(), QRectF(rect().marginsRemoved(margins)));
}

void SecretField::paintEvent(QPaintEvent *event) {
    if (!m_isRevealed) {
        TextField::paintEvent(event);
        return;
    }
    paintFrame();
    layText();
    QPainter painter(this);
    m_revealed.paint(painter, palette(), hasFocus());
}

void SecretField::resizeEvent(QResizeEvent *event) {
    TextField::resizeEvent(event);
    placeEye();
}

void SecretField::changeEvent(QEvent *event) {
    TextField::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange) {
        placeEye();
    }
}

void SecretField::hideEvent(QHideEvent *event) {
    TextField::hideEvent(event);
    reveal(false);
}

// The toolkit would delete what it doesn't copy.
void SecretField::keyPressEvent(QKeyEvent *event) {
    if (!event->matches(QKeySequence::Cut)) {
        TextField::keyPressEvent(event);
    }
}

// The toolkit would look for the place among the dots.
void SecretField::mousePressEvent(QMouseEvent *event) {
    if (!m_isRevealed || event->button() != Qt::LeftButton) {
        TextField::mousePressEvent(event);
        return;
    }
    layText();
    m_anchor = m_revealed.positionAt(event->position().x());
    setCursorPosition(m_anchor);
}

void SecretField::mouseMoveEvent(QMouseEvent *event) {
    if (!m_isRevealed || !event->buttons().testFlag(Qt::LeftButton)) {
        TextField::mouseMoveEvent(event);
        return;
    }
    setSelection(m_anchor, m_revealed.positionAt(event->position().x()) - m_anchor);
}

void SecretField::mouseDoubleClickEvent(QMouseEvent *event) {
    if (!m_isRevealed) {
        TextField::mouseDoubleClickEvent(event);
        return;
    }
    selectAll();
}

} // namespace zeph::ui
