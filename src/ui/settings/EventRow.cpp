// SPDX-License-Identifier: MIT
#include "ui/settings/EventRow.h"

#include "ui/controls/IconButton.h"
#include "ui/controls/SymbolView.h"
#include "ui/controls/TextLabel.h"

#include <QHBoxLayout>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr double eventRowHeight = 44;
constexpr double dateColumn = 129; // from one column to the next
constexpr double recurrenceColumn = 94;
constexpr double symbolSize = 16;
constexpr double symbolGap = 4;

} // namespace

EventRow::EventRow(QWidget *parent)
    : QWidget(parent),
      m_title(new TextLabel({}, TypeRole::row, TextLabel::Ink::ink)),
      m_date(new TextLabel({}, TypeRole::detail, TextLabel::Ink::second)),
      m_symbol(new SymbolView(u"arrow.triangle.2.circlepath"_s, symbolSize)),
      m_recurrence(new TextLabel({}, TypeRole::detail, TextLabel::Ink::second)),
      m_remove(new IconButton(u"minus.circle.fill"_s, {})) {
    setMinimumHeight(scaled(eventRowHeight));
    auto *line = new QHBoxLayout(this);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(0);
    line->addWidget(m_title, 1);
    line->addSpacing(scaled(symbolGap));
    line->addWidget(m_date);
    line->addWidget(m_symbol);
    line->addSpacing(scaled(symbolGap));
    line->addWidget(m_recurrence);
    line->addWidget(m_remove);
    m_title->setElides(true);
    m_date->setWordWrap(false);
    m_date->setMinimumWidth(scaled(dateColumn));
    m_recurrence->setWordWrap(false);
    m_recurrence->setMinimumWidth(scaled(recurrenceColumn - symbolSize - symbolGap));
    // The column stays where it is on a row that has nothing in it.
    for (QWidget *part : {static_cast<QWidget *>(m_symbol), static_cast<QWidget *>(m_recurrence)}) {
        QSizePolicy kept = part->sizePolicy();
        kept.setRetainSizeWhenHidden(true);
        part->setSizePolicy(kept);
    }
    connect(m_remove, &QPushButton::clicked, this, [this] {
        if (onRemove) {
            onRemove(QUuid(m_row.id)); // the row may show another event by then
        }
    });
}

void EventRow::set(const CountdownRow &row) {
    m_row = row;
    m_title->setText(row.title);
    m_date->setText(row.date);
    m_symbol->setVisible(!row.recurrence.isEmpty());
    m_recurrence->setText(row.recurrence);
    m_recurrence->setVisible(!row.recurrence.isEmpty()); // nothing has no place in what is read out
    m_remove->setAccessibleName(u"Remove %1"_s.arg(row.title));
    m_remove->setToolTip(m_remove->accessibleName());
}

} // namespace zeph::ui
