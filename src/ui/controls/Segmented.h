// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Interaction.h"

#include <QWidget>

#include <functional>
#include <vector>

class QButtonGroup;

namespace zeph::ui {

/// One of a few choices side by side; one stop for the keyboard, where the arrows choose.
class Segmented : public QWidget {
public:
    explicit Segmented(const QStringList &labels, QWidget *parent = nullptr);

    /// Shows `index` as chosen, without a call of `onChosen`; -1 for none.
    void choose(int index);
    int chosen() const;

    /// Called when the user chose, with the index.
    std::function<void(int)> onChosen;

protected:
    /// How the segments are set, in logical pixels of the design.
    struct Measures {
        double height = 34;
        double inset = 3; ///< of the chosen one from the track
        double padding = 16;
        double least = 36;              ///< width of a segment
        std::vector<double> sizes = {}; ///< of the letters, one a segment; that of a segment else
    };

    Segmented(const QStringList &labels, Measures measures, QWidget *parent);

    QButtonGroup &group() { return *m_group; }
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    void addSegments(const QStringList &labels);
    void keepOneStop();
    void moveThumb();
    QRectF thumb() const;

    Measures m_measures;
    QButtonGroup *m_group;
    Interaction m_interaction{*this, [this] { return pill(rect()); }};
    Glide m_way;
    int m_shown = -1; ///< where the thumb is, or is going
    QRectF m_from;    ///< where it set off
};

} // namespace zeph::ui
