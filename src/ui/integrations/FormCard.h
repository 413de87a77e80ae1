// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Card.h"

class QVBoxLayout;

namespace zeph::ui {

/// A card with a form on it: fields one below the other, apart from the card's edge.
class FormCard : public Card {
public:
    explicit FormCard(QWidget *parent = nullptr);

    /// Below the others, `gap` logical pixels apart.
    void add(QWidget *widget, double gap = fieldGap);
    /// The same for rows that end in a button, whose middle is on the axis of those of all cards.
    void addRows(QWidget *widget, double gap = fieldGap);

    /// What stands above rows and has no field of its own.
    void addLabel(const QString &text, double gap = fieldGap);

    static constexpr double fieldGap = 18;

private:
    void addInset(QWidget *widget, double gap, double end, double indent = 0);
    void addGap(double gap);

    QVBoxLayout *m_column;
};

} // namespace zeph::ui
