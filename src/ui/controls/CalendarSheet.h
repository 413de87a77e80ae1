// SPDX-License-Identifier: MIT
#pragma once

#include <QCalendarWidget>

namespace zeph::ui {

/// A month to pick a day from, in the colours of the window that opens it.
class CalendarSheet : public QCalendarWidget {
public:
    /// `owner` is the field that opens it.
    explicit CalendarSheet(QWidget &owner);

    void setToday(QDate today) { m_today = today; }
    QDate today() const { return m_today; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void paintCell(QPainter *painter, const QRect &rect, QDate date) const override;
    void showEvent(QShowEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void dress();
    void dressParts();
    /// Gives the toolkit's button that is called `part` our chevron.
    void setTurner(const QString &part, const QString &symbol, const QString &name);

    QWidget *m_owner;
    QDate m_today; ///< invalid while unknown
};

} // namespace zeph::ui
