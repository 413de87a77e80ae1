// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Interaction.h"

#include <QCheckBox>

namespace zeph::ui {

/// On or off: a moon in an outline, or a sun. It has no text of its own; the row that it stands in
/// names it. What is painted is smaller than what can be hit.
class Switch : public QCheckBox {
public:
    explicit Switch(QWidget *parent = nullptr);

    /// Whether it is painted flush with the leading edge, in line with a text above it; else with
    /// the trailing one, in line with other controls.
    void setAtStart(bool isAtStart);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool hitButton(const QPoint &place) const override { return rect().contains(place); }
    void paintEvent(QPaintEvent *event) override;

private:
    Rounded track() const;
    void paintTrack(QPainter &painter, const Tokens &tokens) const;
    void paintDisc(QPainter &painter, const Tokens &tokens) const;

    Interaction m_interaction{*this, [this] { return track(); }};
    Glide m_on;
    bool m_isAtStart = false;
};

} // namespace zeph::ui
