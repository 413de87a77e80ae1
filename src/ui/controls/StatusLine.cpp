// SPDX-License-Identifier: MIT
#include "ui/controls/StatusLine.h"

#include "ui/controls/SymbolView.h"
#include "ui/controls/TextLabel.h"

#include <QHBoxLayout>

namespace zeph::ui {

using namespace Qt::StringLiterals;

StatusLine::StatusLine(QWidget *parent)
    : QWidget(parent),
      m_symbol(new SymbolView(u"info.circle"_s, 16, SymbolView::Ink::second, this)),
      m_text(new TextLabel({}, TypeRole::detail, TextLabel::Ink::ink, this)) {
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_symbol, 0, Qt::AlignTop);
    row->addWidget(m_text, 1);
    hide();
}

void StatusLine::show(Kind kind, const QString &text) {
    m_kind = kind;
    m_text->setText(text);
    setVisible(!text.isEmpty());
}

QString StatusLine::text() const {
    return m_text->text();
}

} // namespace zeph::ui
