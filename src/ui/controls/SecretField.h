// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/RevealedText.h"
#include "ui/controls/TextField.h"

namespace zeph::ui {

class IconButton;

/// A key or a password: hidden until the eye at its end is pressed, and hidden again as soon as the
/// field is emptied or out of sight. It can't be copied or dragged out of, the input method learns
/// nothing of it, and a screen reader is told its length only.
///
/// To the toolkit it is a password at all times, which is what guards the clipboard, the selection
/// and accessibility; revealing only paints the text in place of the dots.
class SecretField : public TextField {
public:
    explicit SecretField(const QString &placeholder = {}, QWidget *parent = nullptr);

    bool isRevealed() const { return m_isRevealed; }

    QVariant inputMethodQuery(Qt::InputMethodQuery property) const override;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    void reveal(bool isWanted);
    void followText();
    void placeEye();
    void layText();

    IconButton *m_eye;
    RevealedText m_revealed;
    int m_usualMargin = textMargins().left(); ///< beside the text where no eye is
    bool m_isRevealed = false;
    int m_anchor = 0; ///< where selecting by the mouse began
};

} // namespace zeph::ui
