// SPDX-License-Identifier: MIT
#include "ui/controls/StatusLine.h"

#include "ui/controls/SymbolView.h"
#include "ui/controls/TextLabel.h"

#include <QAccessible>
#include <QAccessibleWidget>
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

/// A notification is what screen readers read out without taking the focus from anything.
class AccessibleStatus : public QAccessibleWidget {
public:
    explicit AccessibleStatus(StatusLine &line)
        : QAccessibleWidget(&line, QAccessible::Notification), m_line(line) {}

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? m_line.text() : QAccessibleWidget::text(kind);
    }

    static QAccessibleInterface *of(const QString &, QObject *object) {
        auto *line = dynamic_cast<StatusLine *>(object);
        return line == nullptr ? nullptr : new AccessibleStatus(*line);
    }

private:
    StatusLine &m_line;
};

void offerAccessibleStatus() {
    static const bool isOffered = [] {
        QAccessible::installFactory(AccessibleStatus::of);
        return true;
    }();
    Q_UNUSED(isOffered);
}

} // namespace

StatusLine::StatusLine(QWidget *parent)
    : QWidget(parent),
      m_symbol(new SymbolView(u"info.circle"_s, statusSymbolSize, SymbolView::Ink::second, this)),
      m_text(new TextLabel({}, TypeRole::detail, TextLabel::Ink::ink, this)) {
    offerAccessibleStatus();
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
    const bool wasShown = !isHidden();
    setVisible(!text.isEmpty());
    if (wasShown && !text.isEmpty()) {
        announce();
    }
}

/// That a line appears is told by the toolkit; that it says something else, is told here.
void StatusLine::announce() {
    if (!isVisible() || !QAccessible::isActive()) {
        return;
    }
    for (const auto change : {QAccessible::NameChanged, QAccessible::ObjectShow}) {
        QAccessibleEvent event(this, change);
        QAccessible::updateAccessibility(&event);
    }
}

QString StatusLine::text() const {
    return m_text->text();
}

} // namespace zeph::ui
