// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/TextLabel.h"

namespace zeph::ui {

/// A name on one line. What does not fit is cut off at its end, and the whole is its tooltip.
class ElidedLabel : public QLabel {
public:
    ElidedLabel(const QString &text, TypeRole role, TextLabel::Ink ink, QWidget *parent = nullptr);

    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QString shown() const;

    TextLabel::Ink m_ink;
};

} // namespace zeph::ui
