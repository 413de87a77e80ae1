// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/BalancedText.h"
#include "ui/controls/Look.h"

#include <QLabel>

#include <array>
#include <memory>

namespace zeph::ui {

/// A text that wraps to lines of about the same length. Never rich text.
class TextLabel : public QLabel {
public:
    enum class Ink { ink, second, third, error };

    TextLabel(const QString &text, TypeRole role, Ink ink, QWidget *parent = nullptr);

    void setInk(Ink ink);

    /// For names, paths and previews: one line, elided at its end, and whole in the tooltip.
    void setElides(bool elides);
    /// What is beyond is elided, and whole in the tooltip. 0 for no limit.
    void setMostLines(int lines);
    /// The text can be marked by mouse and keyboard and copied.
    void setSelectable(bool isSelectable);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    int heightForWidth(int width) const override;

protected:
    bool event(QEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    struct Kept {
        QString text;
        std::unique_ptr<BalancedText> balanced;
    };

    const BalancedText &balanced(int width) const;
    int textWidth(int width) const;
    QRectF textArea(const BalancedText &text) const;
    Qt::Alignment visualAlignment() const;
    bool isSelectable() const;
    void showWhole();

    TypeRole m_role;
    Ink m_ink;
    int m_mostLines = 0;
    int m_pressedAt = 0;                ///< where a selection by mouse began
    mutable std::array<Kept, 2> m_kept; // the layouts of the widths that were asked for last
};

} // namespace zeph::ui
