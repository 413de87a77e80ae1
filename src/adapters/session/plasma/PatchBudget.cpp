// SPDX-License-Identifier: MIT
#include "adapters/session/plasma/PatchBudget.h"

#include <numeric>

namespace zeph {

namespace {

// A region is cut into bands; more of them than this are hardly chips that lie apart.
constexpr int kMostPieces = 8;

qint64 pixelsOf(const QRect &rect) {
    return qint64{rect.width()} * rect.height();
}

qint64 pixelsOf(const std::vector<QRect> &rects) {
    return std::accumulate(rects.begin(), rects.end(), qint64{0},
                           [](qint64 sum, const QRect &rect) { return sum + pixelsOf(rect); });
}

/// Its rectangles where they leave out much of what lies between them, else the one around all.
std::vector<QRect> piecesOf(const QRegion &changed) {
    const QRect around = changed.boundingRect();
    if (changed.rectCount() <= kMostPieces) {
        std::vector<QRect> pieces(changed.begin(), changed.end());
        if (pixelsOf(pieces) * 2 <= pixelsOf(around)) {
            return pieces;
        }
    }
    return {around};
}

} // namespace

std::vector<QRect> PatchBudget::spend(const QRegion &changed) {
    std::vector<QRect> pieces = piecesOf(changed & QRect(QPoint(), m_whole));
    m_patches += static_cast<int>(pieces.size());
    m_pixels += pixelsOf(pieces);
    const bool isTooMuch =
        m_patches > mostPatches || m_pixels * 2 > pixelsOf(QRect(QPoint(), m_whole));
    if (m_isSpent || isTooMuch) {
        m_isSpent = false;
        m_patches = 0;
        m_pixels = 0;
        return {};
    }
    return pieces;
}

} // namespace zeph
