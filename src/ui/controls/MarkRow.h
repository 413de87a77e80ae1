// SPDX-License-Identifier: MIT
#pragma once

#include <QCheckBox>
#include <QRadioButton>

namespace zeph::ui {

/// A row of a list with a mark before its title and a word at its end: one of many.
class RadioRow : public QRadioButton {
public:
    RadioRow(const QString &title, const QString &detail, QWidget *parent = nullptr);

    void setDetail(const QString &detail);
    const QString &detail() const { return m_detail; }

private:
    QString m_detail;
};

/// The same: any of many.
class CheckRow : public QCheckBox {
public:
    CheckRow(const QString &title, const QString &detail, QWidget *parent = nullptr);

    void setDetail(const QString &detail);
    const QString &detail() const { return m_detail; }

private:
    QString m_detail;
};

} // namespace zeph::ui
