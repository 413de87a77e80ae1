// SPDX-License-Identifier: MIT
#pragma once

#include "settings/UndoOffer.h"

#include <QWidget>

namespace zeph::ui {

class PillButton;
class StatusLine;

/// Tells for some seconds that something was removed, with a button that takes it back.
class UndoLine : public QWidget {
public:
    explicit UndoLine(RunLoop &runLoop, QWidget *parent = nullptr);

    /// What is offered; the line shows as long as it is.
    UndoOffer &offer() { return m_offer; }

    /// Where the focus goes when what had it was removed.
    QWidget *button() const;

private:
    void refresh();

    UndoOffer m_offer;
    StatusLine *m_text;
    PillButton *m_button;
};

} // namespace zeph::ui
