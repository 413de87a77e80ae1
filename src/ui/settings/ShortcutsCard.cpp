// SPDX-License-Identifier: MIT
#include "ui/settings/ShortcutsCard.h"

#include "ui/controls/Accessible.h"
#include "ui/controls/Look.h"
#include "ui/controls/TextLabel.h"

#include <QApplication>
#include <QGridLayout>
#include <QKeyEvent>
#include <QKeySequence>
#include <QPainter>
#include <QVBoxLayout>

#include <array>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr double shortcutsPadding = 24;
constexpr double shortcutsRowGap = 8;
constexpr double shortcutsColumnGap = 30;
constexpr double shortcutsRadius = 16;
constexpr float dimming = 0.62F;

struct Shortcut {
    QString keys;
    QString action;
};

QString keyNames(const QKeySequence &keys) {
    return keys.toString(QKeySequence::NativeText);
}

std::array<Shortcut, 9> shortcuts() {
    return {{
        {u"%1 … %2"_s.arg(keyNames(Qt::CTRL | Qt::Key_1), keyNames(Qt::CTRL | Qt::Key_6)),
         u"Go to a tab"_s},
        {keyNames(Qt::CTRL | Qt::Key_F), u"Search the settings"_s},
        {u"%1, %2"_s.arg(keyNames(Qt::ALT | Qt::Key_Left), keyNames(Qt::Key_Escape)),
         u"Go a step back"_s},
        {u"%1, %2"_s.arg(keyNames(Qt::Key_Tab), keyNames(Qt::SHIFT | Qt::Key_Tab)),
         u"Go to the next or the previous control"_s},
        {u"← ↑ → ↓"_s, u"Choose a tab, an option or a row"_s},
        {keyNames(Qt::Key_Space), u"Turn a switch, press a button, lift or drop a row"_s},
        {u"%1, %2"_s.arg(keyNames(Qt::ALT | Qt::Key_Up), keyNames(Qt::ALT | Qt::Key_Down)),
         u"Move a row of the layout"_s},
        {keyNames(Qt::CTRL | Qt::Key_W), u"Close the window"_s},
        {keyNames(Qt::Key_F1), u"Show this list"_s},
    }};
}

} // namespace

ShortcutsCard::ShortcutsCard(QWidget *parent) : QWidget(parent), m_card(new QWidget(this)) {
    setFocusPolicy(Qt::StrongFocus);
    announceAs(*this, QAccessible::Dialog); // before a screen reader is told of the name
    setAccessibleName(u"Keyboard shortcuts"_s);
    hide();
    parent->installEventFilter(this);
}

void ShortcutsCard::addRows() {
    auto *column = new QVBoxLayout(m_card);
    column->setContentsMargins(scaled(shortcutsPadding), scaled(shortcutsPadding),
                               scaled(shortcutsPadding), scaled(shortcutsPadding));
    column->setSpacing(scaled(shortcutsRowGap * 2));
    column->addWidget(
        new TextLabel(u"Keyboard shortcuts"_s, TypeRole::version, TextLabel::Ink::ink, m_card));
    auto *rows = new QGridLayout;
    rows->setHorizontalSpacing(scaled(shortcutsColumnGap));
    rows->setVerticalSpacing(scaled(shortcutsRowGap));
    QStringList spoken;
    for (const Shortcut &shortcut : shortcuts()) {
        const int row = rows->rowCount();
        rows->addWidget(new TextLabel(shortcut.keys, TypeRole::button, TextLabel::Ink::ink, m_card),
                        row, 0);
        rows->addWidget(
            new TextLabel(shortcut.action, TypeRole::body, TextLabel::Ink::second, m_card), row, 1);
        spoken.append(shortcut.keys + u": "_s + shortcut.action);
    }
    column->addLayout(rows);
    setAccessibleDescription(spoken.join(u". "_s));
    (new QVBoxLayout(this))->addWidget(m_card, 0, Qt::AlignCenter);
}

void ShortcutsCard::present() {
    if (isVisible()) {
        return;
    }
    if (m_card->layout() == nullptr) {
        addRows();
    }
    m_before = QApplication::focusWidget();
    setGeometry(parentWidget()->rect());
    raise();
    show();
    setFocus(Qt::ShortcutFocusReason);
}

void ShortcutsCard::dismiss() {
    if (isHidden()) {
        return;
    }
    hide();
    if (m_before != nullptr) {
        m_before->setFocus(Qt::ShortcutFocusReason);
    }
}

bool ShortcutsCard::eventFilter(QObject *watched, QEvent *event) {
    if (watched == parentWidget() && event->type() == QEvent::Resize) {
        setGeometry(parentWidget()->rect());
    }
    return QWidget::eventFilter(watched, event);
}

bool ShortcutsCard::focusNextPrevChild(bool) {
    return true; // nothing below is to be reached
}

void ShortcutsCard::keyPressEvent(QKeyEvent *event) {
    switch (event->key()) {
    case Qt::Key_Escape:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        dismiss();
        break;
    default:
        event->accept();
    }
}

void ShortcutsCard::mousePressEvent(QMouseEvent *) {
    dismiss();
}

void ShortcutsCard::paintEvent(QPaintEvent *) {
    const Tokens &tokens = Look::of(*this).tokens();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor veil = tokens.ground;
    veil.setAlphaF(dimming);
    painter.fillRect(rect(), veil);
    painter.setBrush(tokens.menu);
    painter.setPen(QPen(tokens.hair, 1));
    painter.drawRoundedRect(QRectF(m_card->geometry()).adjusted(0.5, 0.5, -0.5, -0.5),
                            scaled(shortcutsRadius), scaled(shortcutsRadius));
}

} // namespace zeph::ui
