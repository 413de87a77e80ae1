// SPDX-License-Identifier: MIT
#pragma once

#include "ui/settings/WallpaperThumbnail.h"

namespace zeph::ui {

/// The wallpaper in small, as large as there is room for.
class WallpaperPreview : public WallpaperThumbnail {
public:
    /// Never larger than `largest`, in logical pixels, and in its proportions.
    WallpaperPreview(const SettingsContext &context, const QSize &largest,
                     QWidget *parent = nullptr);

    QSize sizeHint() const override { return m_largest; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

private:
    QSize m_largest;
};

} // namespace zeph::ui
