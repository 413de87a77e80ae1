// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Look.h"

#include <QImage>
#include <QWidget>

#include <memory>

namespace zeph::ui {

/// A picture of controls, each in a window of its own, so that each can have the focus.
class ControlSheet {
public:
    enum class State { normal, hovered, pressed, focused, disabled };

    /// At the pixel ratio of the display.
    ControlSheet(const QSize &size, Appearance appearance);

    /// Paints `control` in `state` with its upper left corner at `place`, as large as it wants to
    /// be or `width` wide. Takes it.
    void add(const QPoint &place, QWidget *control, State state = State::normal, int width = 0);
    /// The same from right to left.
    void addMirrored(const QPoint &place, QWidget *control, int width = 0);

    const QImage &picture() const { return m_picture; }

private:
    void paint(const QPoint &place, QWidget &window);

    Appearance m_appearance;
    QImage m_picture;
};

} // namespace zeph::ui
