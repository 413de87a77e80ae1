// SPDX-License-Identifier: MIT
#include "presentation/widgets/RootWallpaperView.h"

#include "core/AppState.h"
#include "presentation/catalogue/WidgetLayoutCatalog.h"
#include "presentation/framing/FramingContext.h"
#include "presentation/palette/BackgroundPresets.h"
#include "presentation/preferences/PreferencesStore.h"
#include "presentation/widgets/WallpaperContentView.h"

#include <algorithm>

namespace zeph {

namespace {

constexpr double sideMargin = 48;
constexpr double endMargin = 28; // top and bottom

// The backdrop stands still so that it costs no processor time; its pace is passed all the same,
// so that this one switch brings the motion back.
constexpr bool animatesBackdrop = false;
constexpr double backdropFps = 12;

double energyOf(const AppState &state) {
    constexpr double idleEnergy = 0.12;
    constexpr double swiftTyping = 320; // keystrokes a minute at which the energy is full
    if (state.activity->isIdle) {
        return idleEnergy;
    }
    return 0.25 + 0.75 * std::min(state.rhythm->keystrokesPerMinute / swiftTyping, 1.0);
}

} // namespace

RootWallpaperView::RootWallpaperView(const AppState &state, const PreferencesStore &preferences,
                                     const UsageStore &usage, const FramingContext &framing,
                                     const TextMetrics &metrics, AccountChoices accounts)
    : m_state(state),
      m_preferences(preferences),
      m_usage(usage),
      m_framing(framing),
      m_metrics(metrics),
      m_accounts(std::move(accounts)) {}

Palette RootWallpaperView::palette() const {
    const FocusState focus = *m_state.focus;
    const BackgroundMode mode = m_preferences.backgroundMode();
    if (mode == BackgroundMode::automatic) {
        return Palette::forMood(m_state.moodFraction(m_framing.calendar), focus);
    }
    Palette palette =
        Palette::custom(BackgroundPresets::colorFor(m_preferences.backgroundHex()), focus);
    if (mode == BackgroundMode::transparent) {
        palette.cardFill = Color::black(m_preferences.transparentDim());
    }
    return palette;
}

AmbientBackgroundView RootWallpaperView::background() const {
    return {palette(), energyOf(m_state), animatesBackdrop, backdropFps};
}

QRectF RootWallpaperView::contentArea(const QSizeF &size) const {
    const EdgeInsets &dock = *m_state.dockInsets;
    const double left = sideMargin + dock.leading;
    const double top = endMargin + dock.top;
    const double width = size.width() - left - sideMargin - dock.trailing;
    const double height = size.height() - top - endMargin - dock.bottom;
    return {left, top, std::max(width, 0.0), std::max(height, 0.0)};
}

Scene RootWallpaperView::scene(const QSizeF &size, bool surfaceIsTransparent) const {
    const AmbientBackgroundView backdrop = background();
    Scene scene;
    if (m_preferences.backgroundMode() != BackgroundMode::transparent || !surfaceIsTransparent) {
        scene.backdrop = backdrop.picture(*m_state.now);
    }
    const WidgetContext context{m_state,   m_preferences,    m_usage,
                                m_framing, backdrop.palette, m_accounts};
    const QRectF area = contentArea(size);
    const WallpaperContentView content(context, area.size());
    content
        .body(WidgetLayoutCatalog::orderedKinds(m_state, m_preferences, m_accounts.quoteEnabled(),
                                                m_framing.calendar))
        .place(area, {m_metrics}, scene.items);
    return scene;
}

} // namespace zeph
