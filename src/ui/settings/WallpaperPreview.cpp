// SPDX-License-Identifier: MIT
#include "ui/settings/WallpaperPreview.h"

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int leastShare = 5; // what of its largest width it can shrink to

} // namespace

WallpaperPreview::WallpaperPreview(const SettingsContext &context, const QSize &largest,
                                   QWidget *parent)
    : WallpaperThumbnail(context, largest, parent), m_largest(largest) {
    setAccessibleName(u"Preview of your wallpaper"_s);
    setMinimumSize(largest / leastShare);
    setMaximumSize(largest);
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

int WallpaperPreview::heightForWidth(int width) const {
    return std::min(width, m_largest.width()) * m_largest.height() / m_largest.width();
}

} // namespace zeph::ui
