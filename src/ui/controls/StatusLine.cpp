// SPDX-License-Identifier: MIT
#include "ui/controls/StatusLine.h"

#include "ui/controls/Accessible.h"
#include "ui/controls/SymbolView.h"
#include "ui/controls/TextLabel.h"

#include <QAccessible>
#include <QEvent>
#include <QHBoxLayout>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr double statusSymbolSize = 16;
constexpr double statusSymbolToText = 8;
constexpr int mostErrorLines = 4;

struct StatusShape {
    QString symbol;
    SymbolView::Ink symbolInk;
    TextLabel::Ink textInk;
};

StatusShape statusShapeOf(StatusLine::Kind kind) {
    switch (kind) {
    case StatusLine::Kind::ok:
        return {u"checkmark.circle.fill"_s, SymbolView::Ink::ok, TextLabel::Ink::ink};
    case StatusLine::Kind::error:
        return {u"xmark.circle"_s, SymbolView::Ink::error, TextLabel::Ink::error};
    case StatusLine::Kind::hint:
        break;
    case StatusLine::Kind::busy:
        return {u"hourglass"_s, SymbolView::Ink::second, TextLabel::Ink::second};
    }
    return {u"info.circle"_s, SymbolView::Ink::second, TextLabel::Ink::second};
}

} // namespace

StatusLine::StatusLine(QWidget *parent)
    : QWidget(parent),
      m_symbol(new SymbolView(u"info.circle"_s, statusSymbolSize, SymbolView::Ink::second, this)),
      m_text(new TextLabel({}, TypeRole::detail, TextLabel::Ink::ink, this)) {
    // What screen readers read out without taking the focus from anything.
    announceAs(*this, QAccessible::Notification);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(scaled(statusSymbolToText));
    auto *symbolPlace = new QVBoxLayout; // level with the first line
    symbolPlace->setContentsMargins(
        0, (lineHeight(TypeRole::detail) - scaled(statusSymbolSize)) / 2, 0, 0);
    symbolPlace->addWidget(m_symbol, 0, Qt::AlignTop);
    row->addLayout(symbolPlace);
    row->addWidget(m_text, 1);
    hide();
}

void StatusLine::show(Kind kind, const QString &text) {
    const bool isSame = kind == m_kind && text == m_text->text() && isHidden() == text.isEmpty();
    if (isSame) {
        return;
    }
    m_kind = kind;
    const StatusShape shape = statusShapeOf(kind);
    m_symbol->set(shape.symbol, shape.symbolInk);
    m_text->setInk(shape.textInk);
    m_text->setMostLines(kind == Kind::error ? mostErrorLines : 0);
    m_text->setSelectable(kind == Kind::error);
    m_text->setText(text);
    setAccessibleName(text);
    const bool wasShown = !isHidden();
    showUnlessEmpty();
    if (wasShown && !text.isEmpty()) {
        announce();
    }
}

/// A line that has no place yet would become a window of its own.
void StatusLine::showUnlessEmpty() {
    if (!isWindow()) {
        setVisible(!text().isEmpty());
    }
}

bool StatusLine::event(QEvent *event) {
    if (event->type() == QEvent::ParentChange) {
        showUnlessEmpty();
    }
    return QWidget::event(event);
}

/// That a line appears is told by the toolkit; that it says something else, is told here.
void StatusLine::announce() {
    if (isVisible() && QAccessible::isActive()) {
        QAccessibleEvent event(this, QAccessible::ObjectShow);
        QAccessible::updateAccessibility(&event);
    }
}

QString StatusLine::text() const {
    return m_text->text();
}

} // namespace zeph::ui
