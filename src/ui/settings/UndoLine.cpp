// SPDX-License-Identifier: MIT
#include "ui/settings/UndoLine.h"

#include "ui/controls/Look.h"
#include "ui/controls/PillButton.h"
#include "ui/controls/StatusLine.h"

#include <QHBoxLayout>

namespace zeph::ui {

using namespace Qt::StringLiterals;

UndoLine::UndoLine(RunLoop &runLoop, QWidget *parent)
    : QWidget(parent),
      m_offer(runLoop),
      m_text(new StatusLine(this)),
      m_button(new PillButton(u"Undo"_s, PillButton::Kind::secondary, this)) {
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(scaled(12));
    row->addWidget(m_text, 1, Qt::AlignVCenter);
    row->addWidget(m_button);
    m_button->setHeight(PillButton::Height::small);
    m_offer.changed = [this] { refresh(); };
    connect(m_button, &QPushButton::clicked, this, [this] { m_offer.takeBack(); });
    hide();
}

QWidget *UndoLine::button() const {
    return m_button;
}

void UndoLine::refresh() {
    const auto &text = m_offer.text();
    setVisible(text.has_value());
    m_text->show(StatusLine::Kind::hint, text.value_or(QString()));
}

} // namespace zeph::ui
