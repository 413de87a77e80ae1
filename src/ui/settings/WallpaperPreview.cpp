// SPDX-License-Identifier: MIT
#include "ui/settings/WallpaperPreview.h"

#include "ports/RunLoop.h"
#include "ports/Screens.h"
#include "ui/controls/Accessible.h"

#include <algorithm>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int leastShare = 5; // what of its largest width it can shrink to

} // namespace

WallpaperPreview::WallpaperPreview(const SettingsContext &context, const QSize &largest,
                                   QWidget *parent)
    : WallpaperThumbnail(context, largest, parent),
      m_screens(context.screens),
      m_largest(largest),
      m_screenChanges(context.screens.subscribe([this, &loop = context.runLoop] {
          loop.post(m_fitting.whileAlive([this] { fit(); }));
      })) {
    setAccessibleName(u"Preview of your wallpaper"_s);
    announceAs(*this, QAccessible::Graphic);
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    fit();
}

void WallpaperPreview::fit() {
    const auto screen = m_screens.main();
    const bool isKnown = screen && !screen->frame.isEmpty();
    const QSize fitted =
        isKnown ? screen->frame.size().scaled(m_largest, Qt::KeepAspectRatio).toSize() : m_largest;
    setMinimumSize(fitted / leastShare);
    setMaximumSize(fitted);
    updateGeometry();
}

int WallpaperPreview::heightForWidth(int width) const {
    const QSize most = maximumSize();
    return std::min(width, most.width()) * most.height() / most.width();
}

} // namespace zeph::ui
