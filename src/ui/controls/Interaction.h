// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Glide.h"
#include "ui/controls/Paint.h"

#include <QObject>
#include <QPointer>

namespace zeph::ui {

class Ring;

/// What pointer and keyboard do with a control, as far as it shows: how much it is hovered, and a
/// ring around it while it has the focus and the keyboard is what is used.
class Interaction : public QObject {
public:
    /// `shape` is what the ring follows, in the coordinates of `control`. Without one the control
    /// draws its own, by `hasKeyboardFocus`.
    explicit Interaction(QWidget &control, std::function<Rounded()> shape = {});
    ~Interaction() override;
    Interaction(const Interaction &) = delete;
    Interaction &operator=(const Interaction &) = delete;

    /// 0 to 1.
    double hover() const { return m_hover.value(); }
    /// Whether the control, or a part of it, has the focus, and the keyboard is used.
    bool hasKeyboardFocus() const { return m_hasFocus && m_isByKeyboard; }

    /// The focus of `part` counts as that of the control.
    void watch(QWidget &part);
    /// Shows a ring in the accent colour where the one of the focus would be.
    void setMarked(bool isMarked);
    /// Shows the ring anew, or no longer, after its shape has changed.
    void updateRing();

    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void followFocus(QObject &object, QEvent &event);
    void showRing();

    QWidget *m_control;
    std::function<Rounded()> m_shape;
    Glide m_hover;
    bool m_hasFocus = false;
    bool m_isByKeyboard = false;
    bool m_isMarked = false;
    QPointer<Ring> m_ring; // its parent is whatever it lies on
};

/// Whether a control that gets the focus for this reason is to bring what is current in it into
/// view: by the keyboard or by the program, but not by a press, under which nothing must move, nor
/// with its window, which a press may have raised.
bool bringsIntoView(Qt::FocusReason reason);

} // namespace zeph::ui
