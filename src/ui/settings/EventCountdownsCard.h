// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Card.h"
#include "ui/settings/Pane.h"
#include "ui/settings/SettingsContext.h"

#include <QDate>

class QBoxLayout;
class QUuid;

namespace zeph {

struct CountdownForm;

namespace ui {

class CardRows;
class ChoiceBox;
class DateField;
class PillButton;
class TextField;
class UndoLine;

/// The days that the user looks forward to, and the form of a new one.
class EventCountdownsCard : public Card {
public:
    explicit EventCountdownsCard(const SettingsContext &context, QWidget *parent = nullptr);

    std::vector<SearchEntry> searchEntries() const { return {m_entry}; }

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    QWidget *makeBody();
    QLayout *makeForm();
    void refresh();
    void refreshForm();
    void followToday();
    CountdownForm form() const;
    void add();
    void remove(const QUuid &id);
    void focusRow(const QUuid &id);

    SettingsContext m_context;
    CardRows *m_list;
    UndoLine *m_undo;
    TextField *m_name;
    QDate m_offered; ///< the day that the field had of itself
    DateField *m_day;
    ChoiceBox *m_recurrence;
    PillButton *m_add;
    QBoxLayout *m_form;
    SearchEntry m_entry;
};

} // namespace ui

} // namespace zeph
