// SPDX-License-Identifier: MIT
#include "ui/integrations/EditorBar.h"

#include "ui/controls/Look.h"
#include "ui/controls/PillButton.h"
#include "ui/controls/StatusLine.h"
#include "ui/controls/TextLabel.h"

#include <QHBoxLayout>

namespace zeph::ui {

namespace {

constexpr double barSpacing = 10;
constexpr double failureGap = 14;

} // namespace

EditorBar::EditorBar(const QString &removal, const QString &saving, QWidget *parent)
    : QWidget(parent),
      m_failure(new StatusLine(this)),
      m_removal(new PillButton(removal, PillButton::Kind::destructive, this)),
      m_state(new StatusLine(this)),
      m_plain(new TextLabel({}, TypeRole::detail, TextLabel::Ink::second, this)),
      m_saving(new PillButton(saving, PillButton::Kind::primary, this)) {
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(scaled(failureGap));
    column->addWidget(m_failure);
    auto *row = new QHBoxLayout;
    row->setSpacing(scaled(barSpacing));
    row->addWidget(m_removal);
    row->addStretch(1);
    row->addWidget(m_state, 0, Qt::AlignVCenter);
    row->addWidget(m_plain, 0, Qt::AlignVCenter);
    row->addWidget(m_saving);
    column->addLayout(row);
    m_plain->setWordWrap(false);
    m_plain->hide();
}

void EditorBar::showState(bool isGood, const QString &text) {
    m_state->show(StatusLine::Kind::ok, isGood ? text : QString());
    m_plain->setText(text);
    m_plain->setVisible(!isGood && !text.isEmpty());
}

void EditorBar::showBusy(const QString &text) {
    m_state->show(StatusLine::Kind::busy, text);
    m_plain->hide();
}

void EditorBar::showFailure(const QString &text) {
    m_failure->show(StatusLine::Kind::error, text);
}

QString EditorBar::state() const {
    return m_plain->isHidden() ? m_state->text() : m_plain->text();
}

QString EditorBar::failure() const {
    return m_failure->text();
}

} // namespace zeph::ui
