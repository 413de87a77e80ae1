// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QWidget>

namespace zeph::ui {

/// The list of keyboard shortcuts, over the whole window until a key or a click sends it away.
class ShortcutsCard : public QWidget {
public:
    explicit ShortcutsCard(QWidget *parent);

    /// Takes the focus; it goes back to where it was by `dismiss`.
    void present();
    void dismiss();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void addRows();

    QWidget *m_card;
    QPointer<QWidget> m_before; ///< what had the focus
};

} // namespace zeph::ui
