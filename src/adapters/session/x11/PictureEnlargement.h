// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>

namespace zeph {

/// How many device pixels a desktop program makes of one pixel of its picture, in each direction.
/// Caja's picture has one pixel for each point, and GTK enlarges it on screens with more.
class PictureEnlargement {
public:
    /// That of an announced picture in a window of this size, in device pixels. While the two do
    /// not fit, as when displays change, it is what it was.
    int take(const QSize &picture, const QSize &window) {
        for (int factor = 1; factor <= kMost; ++factor) {
            if (!picture.isEmpty() && picture * factor == window) {
                m_last = factor;
            }
        }
        return m_last;
    }

private:
    static constexpr int kMost = 4;

    int m_last = 1;
};

} // namespace zeph
