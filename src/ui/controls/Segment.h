// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Interaction.h"

#include <QRadioButton>

namespace zeph::ui {

/// One choice of a `Segmented`, which paints what lies under the text.
class Segment : public QRadioButton {
public:
    /// How its text is set, in logical pixels of the design.
    struct Setting {
        double height;
        double padding;
        double least;      ///< width
        double letterSize; ///< 0 for that of running segments
    };

    Segment(const QString &text, const Setting &setting, QWidget *parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool hitButton(const QPoint &place) const override { return rect().contains(place); }
    void paintEvent(QPaintEvent *event) override;

private:
    QFont fontWhen(bool isChosen) const;
    double textWidth() const;

    Setting m_setting;
    Interaction m_interaction{*this};
    // Layouts ask many times, and each answer takes two fonts and their letters.
    struct Measured {
        QString text;
        double scale = 0;
        double width = 0;
    };
    mutable Measured m_measured;
};

} // namespace zeph::ui
