// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>

namespace zeph::ui {

/// A line of text.
class TextField : public QLineEdit {
public:
    explicit TextField(const QString &placeholder = {}, QWidget *parent = nullptr);

    /// Draws the edge as that of a wrong entry; a status line below tells what is wrong.
    void setWrong(bool isWrong);
    bool isWrong() const { return m_isWrong; }

private:
    bool m_isWrong = false;
};

} // namespace zeph::ui
