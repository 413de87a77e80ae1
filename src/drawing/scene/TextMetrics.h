// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/scene/TextStyle.h"

#include <QSizeF>
#include <QString>
#include <QStringList>

namespace zeph {

/// Sizes of shaped text, in points. Answers are cached by text and font.
class TextMetrics {
public:
    TextMetrics() = default;
    virtual ~TextMetrics() = default;
    TextMetrics(const TextMetrics &) = delete;
    TextMetrics &operator=(const TextMetrics &) = delete;

    /// The line box of `text` on one line. The height depends on the font alone.
    virtual QSizeF size(const QString &text, const FontSpec &font) const = 0;

    /// How far from the left end of its box the ink of `text` begins.
    virtual double inkStart(const QString &text, const FontSpec &font) const = 0;

    /// `text` cut with an ellipsis so that it fits `width`; the text itself when it fits.
    virtual QString elided(const QString &text, const FontSpec &font, double width) const = 0;

    /// `text` broken into lines no wider than `width`; a word wider than that is broken inside.
    virtual QStringList wrapped(const QString &text, const FontSpec &font, double width) const = 0;
};

} // namespace zeph
