// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QLineEdit;
class QVBoxLayout;

namespace zeph::ui {

/// A field with its label above, which is its accessible name as well, and notes below.
class LabelledField : public QWidget {
public:
    /// Takes `field`.
    LabelledField(const QString &label, QLineEdit *field, QWidget *parent = nullptr);

    QLineEdit &field() const { return *m_field; }

    /// A line of explanation under the field.
    void addNote(const QString &text);
    /// Something else under the field, such as a link.
    void addBelow(QWidget *widget);

private:
    void addInset(QWidget *text);

    QLineEdit *m_field;
    QVBoxLayout *m_column;
};

} // namespace zeph::ui
