// SPDX-License-Identifier: MIT
#include "widgets/RootWallpaperView.h"

#include "drawing/palette/BackgroundPresets.h"
#include "model/AppState.h"
#include "ports/Calendar.h"
#include "settings/PreferencesStore.h"
#include "widgets/HiddenReason.h"
#include "widgets/WallpaperContentView.h"
#include "widgets/WidgetLayoutCatalog.h"
#include "wording/FramingContext.h"

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

RootWallpaperView RootWallpaperView::withBackground(BackgroundMode mode) const {
    RootWallpaperView view = *this;
    view.m_background = mode;
    return view;
}

BackgroundMode RootWallpaperView::backgroundMode() const {
    return m_background.value_or(m_preferences.backgroundMode());
}

Palette RootWallpaperView::palette() const {
    const FocusState focus = *m_state.focus;
    const BackgroundMode mode = backgroundMode();
    if (mode == BackgroundMode::automatic) {
        const int hour = m_framing.calendar.components(*m_state.now).hour;
        return Palette::forMood(m_state.moodFraction(hour), focus);
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

std::optional<AmbientBackground> RootWallpaperView::backdrop(bool surfaceIsTransparent) const {
    if (backgroundMode() == BackgroundMode::transparent && surfaceIsTransparent) {
        return std::nullopt;
    }
    return background().picture(*m_state.now);
}

Scene RootWallpaperView::scene(const QSizeF &size, bool surfaceIsTransparent) const {
    Scene scene;
    scene.backdrop = backdrop(surfaceIsTransparent);
    const WidgetContext context{m_state, m_preferences, m_usage, m_framing, palette(), m_accounts};
    const QRectF area = contentArea(size);
    const WallpaperContentView content(context, area.size());
    const bool quoteEnabled = m_accounts.quoteEnabled();
    content
        .body(WidgetLayoutCatalog::orderedKinds(m_state, m_preferences, quoteEnabled,
                                                m_framing.calendar))
        .place(area, {m_metrics}, scene.items);
    if (!m_background) { // else the wallpaper itself tells
        m_hiddenLog.update([&](WidgetKind kind) {
            return hiddenReason(kind, m_state, m_preferences, quoteEnabled, m_framing.calendar);
        });
    }
    return scene;
}

} // namespace zeph
