// SPDX-License-Identifier: MIT
#include "adapters/session/x11/SilentPicture.h"

#include <algorithm>
#include <utility>

namespace zeph {

std::optional<PixmapForm> SilentPicture::take(const PixmapForm &announced,
                                              const std::vector<PixmapForm> &held,
                                              const PixmapForm &whole) {
    const bool isNews = std::exchange(m_announced, announced.pixmap) != announced.pixmap;
    const auto isHeld = [&](xcb_pixmap_t pixmap) {
        return std::any_of(held.begin(), held.end(),
                           [pixmap](const PixmapForm &one) { return one.pixmap == pixmap; });
    };
    const bool fits = announced.isAlike(whole);
    std::erase_if(m_older, [&](xcb_pixmap_t pixmap) { return isNews || !isHeld(pixmap); });
    std::optional<PixmapForm> silent;
    int count = 0;
    for (const PixmapForm &one : held) {
        if (one.pixmap == announced.pixmap || !one.isAlike(whole)) {
            continue;
        }
        if (isNews && fits) {
            m_older.push_back(one.pixmap);
        } else if (!fits ||
                   std::find(m_older.begin(), m_older.end(), one.pixmap) == m_older.end()) {
            silent = one;
            ++count;
        }
    }
    return count == 1 ? silent : std::nullopt;
}

} // namespace zeph
