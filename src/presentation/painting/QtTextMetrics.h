// SPDX-License-Identifier: MIT
#pragma once

#include "presentation/painting/QtFonts.h"
#include "presentation/view/TextMetrics.h"

#include <QCache>

namespace zeph {

/// Sizes of texts in the fonts of this machine. Main thread only. The caches are bounded: the texts
/// that were not asked for the longest go first.
class QtTextMetrics final : public TextMetrics {
public:
    QtTextMetrics();
    ~QtTextMetrics() override;

    QSizeF size(const QString &text, const FontSpec &font) const override;
    QString elided(const QString &text, const FontSpec &font, double width) const override;
    QStringList wrapped(const QString &text, const FontSpec &font, double width) const override;

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

    mutable QCache<Key, double> m_widths;
    mutable QCache<Key, QString> m_elided;
    mutable QCache<Key, QStringList> m_wrapped;
    mutable QCache<Key, LineBox> m_boxes;
};

} // namespace zeph
