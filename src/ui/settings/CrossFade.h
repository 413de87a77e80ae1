// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>
#include <QVariantAnimation>
#include <QWidget>

namespace zeph::ui {

/// Lies over what is about to change, shows how it was, and fades away.
class CrossFade : public QWidget {
public:
    explicit CrossFade(QWidget *parent);

    /// Takes a picture of `area` of the parent; to be called before the change. Does nothing where
    /// there is nobody to see it, or motion is not wanted.
    void start(const QRect &area);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QPixmap m_before;
    QVariantAnimation m_animation;
};

} // namespace zeph::ui
