// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/view/View.h"

namespace zeph {

enum class HorizontalAlignment { leading, center, trailing };
enum class VerticalAlignment { top, center, bottom };

/// A fixed or limited frame around a view. Absent sides take the content's own size; `maxWidth`
/// limits the width that the content is offered and takes.
struct FrameSpec {
    std::optional<double> width;
    std::optional<double> height;
    std::optional<double> maxWidth;
    HorizontalAlignment horizontal = HorizontalAlignment::center;
    VerticalAlignment vertical = VerticalAlignment::center;
};

/// Space around a view, in points.
struct Padding {
    double horizontal = 0;
    double vertical = 0;
};

/// One line of text, cut with an ellipsis at the tail when it is offered less width than it needs.
View text(const QString &string, const TextStyle &style);

/// The same, moved to the left by the room before its first letter's ink, which large letters and
/// digits in cells leave: so it lines up with small text above and below.
View textFromItsInk(const QString &string, const TextStyle &style);

/// Text that wraps at the offered width into as many lines as it needs.
View wrappingText(const QString &string, const TextStyle &style);

/// A symbol of `size` points in a square frame of `frame` points, centred.
View symbol(const QString &identifier, double size, const Color &color, double frame);

View verticalStack(double spacing, std::vector<View> children,
                   HorizontalAlignment alignment = HorizontalAlignment::leading);
View horizontalStack(double spacing, std::vector<View> children,
                     VerticalAlignment alignment = VerticalAlignment::center);

View framed(View content, const FrameSpec &frame);
View padded(View content, const Padding &padding);

/// A rounded rectangle as large as it is offered, 10 points a side without an offer.
View roundedRectangle(double cornerRadius, const Fill &fill);

/// `content` over a rounded rectangle of its own size.
View onCard(View content, double cornerRadius, const Color &fill);

/// A track with a fill of `fillWidth` points from its left edge, both with round corners.
View bar(const QSizeF &size, double cornerRadius, const Color &track, double fillWidth,
         const Fill &fill);

/// Columns of `cell` by `cell` squares with corners of 2 points, `gap` apart, top to bottom and
/// left to right. A fully clear colour draws nothing.
View heatmap(const std::vector<std::vector<Color>> &columns, double cell, double gap);

/// An encoded picture filling `size`; the empty view when the bytes are no picture.
View image(const QByteArray &encoded, const QSizeF &size, double cornerRadius,
           const Color &outline);

} // namespace zeph
