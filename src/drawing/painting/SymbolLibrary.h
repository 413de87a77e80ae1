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

    /// An Alpha8 picture of `pixels` by `pixels`, drawn for just that size.
    QImage mask(const QString &identifier, int pixels);

    /// Whether there is a drawing for `identifier`.
    bool contains(const QString &identifier) const;

private:
    QString path(const QString &identifier) const;

    QString m_folder;
    QCache<std::pair<QString, int>, QImage> m_masks;
};

} // namespace zeph
