// SPDX-License-Identifier: MIT
#pragma once

#include <QPlainTextEdit>

namespace zeph::ui {

/// Some lines of a command, in the system's fixed font. Tab leaves it.
class CommandField : public QPlainTextEdit {
public:
    explicit CommandField(const QString &name, QWidget *parent = nullptr);

    /// Empties it for good: nothing of it can be brought back by undoing.
    void forget();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
};

} // namespace zeph::ui
