// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/palette/Palette.h"
#include "drawing/scene/Scene.h"
#include "settings/PreferenceChoices.h"
#include "settings/WidgetKind.h"
#include "widgets/AccountChoices.h"
#include "widgets/AmbientBackgroundView.h"
#include "widgets/HiddenWidgetsLog.h"

#include <QRectF>

namespace zeph {

class AppState;
class PreferencesStore;
class TextMetrics;
class UsageStore;
struct FramingContext;

/// What each desktop window shows: a backdrop and over it the widgets. A pure function of the
/// state and the preferences at the moment of the call. Main thread only.
class RootWallpaperView {
public:
    /// Everything outlives the view.
    RootWallpaperView(const AppState &state, const PreferencesStore &preferences,
                      const UsageStore &usage, const FramingContext &framing,
                      const TextMetrics &metrics, AccountChoices accounts);

    /// The same wallpaper with another background than the preferences tell.
    RootWallpaperView withBackground(BackgroundMode mode) const;

    /// The colours of this moment: of the day's mood in automatic mode, else of the user's colour.
    Palette palette() const;

    /// The backdrop of this moment, whether or not the mode shows it.
    AmbientBackgroundView background() const;

    /// What remains of a screen of `size` points inside the margins and the desktop's own panels.
    QRectF contentArea(const QSizeF &size) const;

    /// The backdrop of this moment as the picture holds it, absent where the desktop shows through.
    std::optional<AmbientBackground> backdrop(bool surfaceIsTransparent) const;

    /// The widgets that a screen of `size` points has no room for, whole or in part, in order.
    std::vector<WidgetKind> cutOff(const QSizeF &size) const;

    /// The picture for a screen of `size` points. In transparent mode there is no backdrop, unless
    /// the surface can't let the desktop show through.
    Scene scene(const QSizeF &size, bool surfaceIsTransparent) const;

private:
    BackgroundMode backgroundMode() const;

    const AppState &m_state;
    const PreferencesStore &m_preferences;
    const UsageStore &m_usage;
    const FramingContext &m_framing;
    const TextMetrics &m_metrics;
    AccountChoices m_accounts;
    std::optional<BackgroundMode> m_background; // instead of the preferences'
    mutable HiddenWidgetsLog m_hiddenLog;       // follows what is drawn, and changes nothing of it
};

} // namespace zeph
