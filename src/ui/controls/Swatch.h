// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Interaction.h"

#include <QImage>
#include <QRadioButton>

namespace zeph::ui {

/// A background to choose, painted as the wallpaper would be. Its text is the colour's name, which
/// is not drawn. The chosen one has a ring and a tick; a row of them is one stop, where the arrows
/// choose.
class Swatch : public QRadioButton {
public:
    Swatch(const QString &name, QString hex, QWidget *parent = nullptr);

    const QString &hex() const { return m_hex; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool hitButton(const QPoint &place) const override { return rect().contains(place); }
    void paintEvent(QPaintEvent *event) override;

private:
    Rounded shape() const;
    void paintTick(QPainter &painter) const;
    const QImage &picture(double ratio);

    QString m_hex;
    Interaction m_interaction{*this, [this] { return shape(); }};
    QImage m_picture; ///< in device pixels
};

} // namespace zeph::ui
