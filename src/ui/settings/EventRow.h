// SPDX-License-Identifier: MIT
#pragma once

#include "settings/CountdownForm.h"

#include <QWidget>

#include <functional>

namespace zeph::ui {

class IconButton;
class SymbolView;
class TextLabel;

/// An event of the user's, with a button that removes it.
class EventRow : public QWidget {
public:
    explicit EventRow(QWidget *parent = nullptr);

    void set(const CountdownRow &row);
    const QUuid &id() const { return m_row.id; }
    IconButton &removal() { return *m_remove; }

    /// Called with the row's event when it is to go.
    std::function<void(const QUuid &)> onRemove;

private:
    CountdownRow m_row;
    TextLabel *m_title;
    TextLabel *m_date;
    SymbolView *m_symbol;
    TextLabel *m_recurrence;
    IconButton *m_remove;
};

} // namespace zeph::ui
