// SPDX-License-Identifier: MIT
#include "ui/settings/EventCountdownsCard.h"

#include "ports/Clock.h"
#include "settings/CountdownForm.h"
#include "settings/EventDay.h"
#include "settings/PreferencesStore.h"
#include "ui/controls/ChoiceBox.h"
#include "ui/controls/DateField.h"
#include "ui/controls/IconButton.h"
#include "ui/controls/Look.h"
#include "ui/controls/PillButton.h"
#include "ui/controls/SettingRow.h"
#include "ui/controls/TextField.h"
#include "ui/settings/CardRows.h"
#include "ui/settings/EventRow.h"
#include "ui/settings/LiveRefresh.h"
#include "ui/settings/UndoLine.h"

#include <QHBoxLayout>
#include <QLabel>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr double formGap = 8;
constexpr double widthOfOneLine = 540; // of the card; a narrower one has the name above the rest
constexpr double dayWidth = 138;       // the name needs the room more

// In the order of `allRecurrences`.
QStringList recurrenceTexts() {
    return {u"none"_s, u"weekly"_s, u"monthly"_s, u"yearly"_s};
}

QString namePrompt() {
    return u"Event name"_s;
}

} // namespace

EventCountdownsCard::EventCountdownsCard(const SettingsContext &context, QWidget *parent)
    : Card(parent),
      m_context(context),
      m_list(new CardRows),
      m_undo(new UndoLine(context.runLoop)),
      m_name(new TextField(namePrompt())),
      m_offered(localDay(context.clock.now())),
      m_day(new DateField(m_offered)),
      m_recurrence(new ChoiceBox(recurrenceTexts())),
      m_add(new PillButton(u"Add"_s)),
      m_form(new QBoxLayout(QBoxLayout::LeftToRight)),
      m_entry{u"Event countdowns"_s,
              u"Launches, birthdays, deadlines. Shown on the wallpaper as \"14 days to…\". "
              u"Recurring events roll to the next occurrence once they pass."_s,
              m_name} {
    addRow(new SettingRow({u"calendar.badge.clock"_s, m_entry.title, m_entry.detail}, nullptr));
    addBody(makeBody());
    connect(m_name, &QLineEdit::textChanged, this, [this] { refreshForm(); });
    connect(m_name, &QLineEdit::returnPressed, this, [this] { add(); });
    connect(m_add, &QPushButton::clicked, this, [this] { add(); });
    refreshForm();
    auto *live = new LiveRefresh(*this, context.runLoop, [this] { refresh(); });
    live->follow(context.preferences.objectWillChange);
}

QWidget *EventCountdownsCard::makeBody() {
    auto *body = new QWidget;
    auto *column = new QVBoxLayout(body);
    column->setContentsMargins(0, 0, 0, 0); // the body has its own
    column->setSpacing(0);
    column->addWidget(m_list);
    refresh(); // now, so that the Tab key comes to the rows before the form
    column->addWidget(m_undo);
    column->addSpacing(scaled(10));
    column->addLayout(makeForm());
    m_list->setAccessibleName(m_entry.title);
    return body;
}

QLayout *EventCountdownsCard::makeForm() {
    m_form->setSpacing(scaled(formGap));
    m_form->addWidget(m_name, 1);
    auto *rest = new QHBoxLayout;
    rest->setSpacing(scaled(formGap));
    rest->addWidget(m_day);
    rest->addWidget(m_recurrence);
    rest->addWidget(m_add);
    m_form->addLayout(rest);
    m_name->setAccessibleName(namePrompt());
    m_day->setAccessibleName(u"Event date"_s);
    m_day->setMaximumWidth(scaled(dayWidth));
    m_recurrence->setAccessibleName(u"Recurrence"_s);
    // A choice's own name is its current text, so that what it is for has to be told by a label.
    auto *label = new QLabel(m_recurrence->accessibleName());
    label->setBuddy(m_recurrence);
    label->hide();
    rest->addWidget(label);
    return m_form;
}

void EventCountdownsCard::resizeEvent(QResizeEvent *event) {
    Card::resizeEvent(event);
    m_form->setDirection(width() < scaled(widthOfOneLine) ? QBoxLayout::TopToBottom
                                                          : QBoxLayout::LeftToRight);
}

void EventCountdownsCard::refresh() {
    const auto rows =
        countdownRows(m_context.preferences.countdowns(), m_context.framing.formatters);
    const int count = static_cast<int>(rows.size());
    m_list->removeFrom(count);
    for (int index = 0; index < count; ++index) {
        if (index == m_list->count()) {
            auto *made = new EventRow;
            made->onRemove = [this](const QUuid &id) { remove(id); };
            m_list->add(made);
        }
        static_cast<EventRow *>(m_list->row(index))->set(rows[static_cast<std::size_t>(index)]);
    }
    m_list->setVisible(count > 0);
    followToday();
}

/// The window is kept for days. A day that the user chose stays, and so does one that a name was
/// typed for.
void EventCountdownsCard::followToday() {
    const QDate today = localDay(m_context.clock.now());
    m_day->setToday(today);
    if (m_day->date() == m_offered && m_name->text().isEmpty()) {
        m_offered = today;
        m_day->setDate(today);
    }
}

void EventCountdownsCard::refreshForm() {
    m_add->setEnabled(form().canAdd());
}

CountdownForm EventCountdownsCard::form() const {
    const auto recurrence =
        allRecurrences.at(static_cast<std::size_t>(m_recurrence->currentIndex()));
    return {m_name->text(), eventDate(m_day->date(), recurrence), recurrence};
}

void EventCountdownsCard::add() {
    CountdownForm filled = form();
    if (filled.add(m_context.preferences)) {
        m_name->setText(filled.title);
        refresh();
    }
}

void EventCountdownsCard::remove(const QUuid &id) {
    const auto removed = removeCountdown(id, m_context.preferences);
    if (!removed) {
        return;
    }
    m_undo->offer().offer(removed->record.title, [this, event = *removed] {
        restoreCountdown(event, m_context.preferences);
        refresh();
        focusRow(event.record.id);
    });
    m_undo->button()->setFocus();
    refresh();
}

void EventCountdownsCard::focusRow(const QUuid &id) {
    for (int index = 0; index < m_list->count(); ++index) {
        auto *row = static_cast<EventRow *>(m_list->row(index));
        if (row->id() == id) {
            row->removal().setFocus();
        }
    }
}

} // namespace zeph::ui
