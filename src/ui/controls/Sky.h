// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Tokens.h"

#include <QPixmap>
#include <QWidget>

namespace zeph::ui {

/// What our windows lie on: a piece of dusk or of early morning, painted once a size.
class Sky : public QWidget {
public:
    explicit Sky(QWidget *parent = nullptr);

    /// The sky that `widget` lies on, if it lies on one.
    static Sky *below(const QWidget &widget);

    /// Paints the piece under `part`, which is in the coordinates of the sky, at the origin.
    void paintPiece(QPainter &painter, const QRect &part);

    /// Gives the picture's memory back; it is painted anew when needed.
    void forgetPicture() { m_picture = QPixmap(); }
    bool holdsPicture() const { return !m_picture.isNull(); }

protected:
    void hideEvent(QHideEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    const QPixmap &picture();

    QPixmap m_picture;
    Tokens m_tokens; ///< that the picture was painted with
    Qt::LayoutDirection m_direction = Qt::LeftToRight;
};

} // namespace zeph::ui
