// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Paint.h"

#include <QFocusFrame>

namespace zeph::ui {

/// A ring around a control, outside of it: it lies over what is around, follows the control, and
/// takes neither room nor clicks.
class Ring : public QFocusFrame {
public:
    /// `shape` is asked at each painting, in the coordinates of `control`; an empty one is none.
    Ring(QWidget &control, std::function<Rounded()> shape, std::function<QColor()> color);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    std::function<Rounded()> m_shape;
    std::function<QColor()> m_color;
};

} // namespace zeph::ui
