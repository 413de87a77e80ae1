// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/painting/QtFonts.h"
#include "drawing/painting/TextCache.h"
#include "drawing/painting/TextShaper.h"
#include "drawing/scene/TextMetrics.h"

#include <QCache>

namespace zeph {

/// Sizes of texts in the fonts of this machine. Main thread only. The caches are bounded: the texts
/// that were not asked for the longest go first.
class QtTextMetrics final : public TextMetrics {
public:
    QtTextMetrics();
    ~QtTextMetrics() override;

    QSizeF size(const QString &text, const FontSpec &font) const override;
    double inkStart(const QString &text, const FontSpec &font) const override;
    QString elided(const QString &text, const FontSpec &font, double width) const override;
    QStringList wrapped(const QString &text, const FontSpec &font, double width) const override;

    /// `text` shaped on one line. The shape that its measuring made is handed over and forgotten,
    /// so that a new text is shaped once from layout to pixels and no shape is kept for long.
    ShapedText shaped(const QString &text, const FontSpec &font) const;

    /// Where the letters of `font` stand in its line box.
    LineBox box(const FontSpec &font) const;

private:
    struct Key {
        QString text;
        FontSpec font;
        double width = 0; ///< the width offered; 0 where none plays a part

        bool operator==(const Key &) const = default;
    };
    friend size_t qHash(const Key &key, size_t seed);

    double width(const QString &text, const FontSpec &font) const;

    mutable TextCache<Key, double> m_widths;
    mutable QCache<Key, ShapedText> m_shapes; ///< of texts measured and not painted yet
    mutable TextCache<Key, double> m_inkStarts;
    mutable TextCache<Key, QString> m_elided;
    mutable TextCache<Key, QStringList> m_wrapped;
    mutable TextCache<Key, LineBox> m_boxes;
};

} // namespace zeph
