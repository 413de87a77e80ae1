// SPDX-License-Identifier: MIT
#pragma once

#include <QCache>
#include <QImage>
#include <QString>

namespace zeph {

/// The drawings of the symbols, `<folder>/<identifier>.svg`, as masks of coverage. Of a drawing
/// only its opacity counts. An unknown identifier becomes a small neutral ring.
class SymbolLibrary {
public:
    explicit SymbolLibrary(QString folder = QStringLiteral(":/symbols"));

    /// The width of the family's strokes, of the 24 units that a drawing is wide.
    static constexpr double usualStroke = 1.5;

    /// A drawing at a size: what a mask is made of.
    struct Wanted {
        QString identifier;
        int pixels;
        double stroke = usualStroke;
    };

    /// An Alpha8 picture of `pixels` by `pixels`, drawn for just that size, with strokes `stroke`
    /// units wide.
    QImage mask(const QString &identifier, int pixels, double stroke = usualStroke);

    /// The same, drawn anew and not kept; safe on any thread.
    QImage drawn(const Wanted &wanted) const;

    /// Whether `mask` answers without drawing.
    bool isKept(const Wanted &wanted) const { return m_masks.contains(keyOf(wanted)); }

    /// Has `mask` answer what was `drawn`.
    void keep(const Wanted &wanted, const QImage &mask);

    /// Gives the memory of the masks back.
    void forget() { m_masks.clear(); }

    /// Whether there is a drawing for `identifier`.
    bool contains(const QString &identifier) const;

private:
    using Key = std::pair<QString, std::pair<int, int>>;

    static Key keyOf(const Wanted &wanted);
    QString path(const QString &identifier) const;

    QString m_folder;
    QCache<Key, QImage> m_masks;
};

} // namespace zeph
