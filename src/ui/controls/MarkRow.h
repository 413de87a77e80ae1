// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Interaction.h"

#include <QCheckBox>
#include <QRadioButton>

namespace zeph::ui {

/// A row of a list with a mark before its title and a word at its end. `Button` is the toolkit's
/// own, by which assistive technology knows it.
template <typename Button>
class MarkRow : public Button {
public:
    MarkRow(const QString &title, QString detail, QWidget *parent = nullptr);

    void setText(const QString &title);
    void setDetail(const QString &detail);
    const QString &detail() const { return m_detail; }

    /// Which of how many rows this is, for assistive technology; 0 where it stands alone.
    void setPlace(int place, int count);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool hitButton(const QPoint &point) const override;
    void paintEvent(QPaintEvent *event) override;

private:
    void describe();

    QString m_detail;
    QString m_place; ///< as it is said
    Interaction m_interaction{*this};
};

extern template class MarkRow<QRadioButton>;
extern template class MarkRow<QCheckBox>;

/// One of many.
class RadioRow : public MarkRow<QRadioButton> {
public:
    using MarkRow::MarkRow;
};

/// Any of many.
class CheckRow : public MarkRow<QCheckBox> {
public:
    using MarkRow::MarkRow;
};

} // namespace zeph::ui
