// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Interaction.h"

#include <QCheckBox>

namespace zeph::ui {

/// On or off: a moon in an outline, or a sun. It has no text of its own; the row that it stands in
/// names it. Painted flush with the trailing edge of its target, which is larger.
class Switch : public QCheckBox {
public:
    explicit Switch(QWidget *parent = nullptr);

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
};

} // namespace zeph::ui
