// SPDX-License-Identifier: MIT
#pragma once

#include <QGlyphRun>
#include <QPainterPath>

namespace zeph {

/// The outlines of all glyphs of `run` at their positions; empty for a font of pictures. The same
/// run always gives the same outlines, which Qt's own drawing of large letters does not: there they
/// are off by the part of a pixel at which the last small letter was drawn.
QPainterPath glyphOutlines(const QGlyphRun &run);

} // namespace zeph
