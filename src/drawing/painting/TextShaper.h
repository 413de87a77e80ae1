// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/scene/TextStyle.h"

#include <QGlyphRun>
#include <QString>

#include <vector>

namespace zeph {

/// Glyphs of one line, in pixels of the font they were shaped with. `factor` makes points of them.
struct ShapedText {
    std::vector<QGlyphRun> runs; ///< positions relative to the left end of the baseline
    double width = 0;            ///< in points
    double factor = 1;
};

/// Shapes `text` on one line. With even digits each digit stands in the middle of a cell as wide
/// as the widest digit of its font.
ShapedText shapeText(const QString &text, const FontSpec &font);

} // namespace zeph
