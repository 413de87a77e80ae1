// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/scene/TextStyle.h"
#include "drawing/view/View.h"

#include <QString>

#include <vector>

namespace zeph {

struct Palette;

/// The row forms that the widgets share. Sizes and spacings in points.
inline constexpr double widgetRowSpacing = 10;

/// The palette's text colour at `opacity`, in the interface typeface.
TextStyle textStyle(const Palette &palette, double size, FontWeight weight, double opacity);

/// `name` for use inside a sentence: a name that is written from right to left is set apart, so
/// that it doesn't turn the numbers and words around it. Any other name is left alone.
QString setApart(const QString &name);

/// A small heading over a widget, in upper case; cut at 490 points.
View sectionLabel(const QString &title, const Palette &palette);

/// A symbol and a sentence, cut at 520 points; as high as the symbol's frame or the text, whichever
/// is higher.
View calmLine(const QString &symbolName, const QString &sentence, const Palette &palette);

/// A calm line of a list, 24 points high, so that the lines of a widget stand evenly.
View calmListLine(const QString &symbolName, const QString &sentence, const Palette &palette);

/// A small symbol and a short fact.
struct MetricChip {
    QString icon;
    QString text;

    bool operator==(const MetricChip &) const = default;
};

View metricChip(const MetricChip &chip, const Palette &palette);

/// Chips two abreast in columns of 240 points.
View chipGrid(const std::vector<MetricChip> &chips, const Palette &palette);

/// Rows under each other, leading-aligned, 10 points apart.
View widgetRows(std::vector<View> rows);

} // namespace zeph
