// SPDX-License-Identifier: MIT
#pragma once

#include "ui/settings/WallpaperThumbnail.h"

namespace zeph::ui {

/// The wallpaper in small, as large as there is room for, in the shape of the main screen.
class WallpaperPreview : public WallpaperThumbnail {
public:
    /// Never larger than `largest`, in logical pixels.
    WallpaperPreview(const SettingsContext &context, const QSize &largest,
                     QWidget *parent = nullptr);

    QSize sizeHint() const override { return maximumSize(); }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

private:
    void fit();

    const Screens &m_screens;
    QSize m_largest;
    WorkOwner m_fitting;
    Subscription m_screenChanges;
};

} // namespace zeph::ui
