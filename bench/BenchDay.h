// SPDX-License-Identifier: MIT
#pragma once

#include "core/AppState.h"
#include "core/NotificationCenter.h"
#include "presentation/framing/FramingContext.h"
#include "presentation/painting/QtTextMetrics.h"
#include "presentation/painting/ScenePainter.h"
#include "presentation/painting/SceneRenderer.h"
#include "presentation/painting/SymbolLibrary.h"
#include "presentation/preferences/PreferencesStore.h"
#include "presentation/widgets/RootWallpaperView.h"
#include "support/FakePlatform.h"

namespace zeph {

/// A machine of fakes whose state fills every local widget, and what draws it.
class BenchDay : public FakePlatform {
public:
    BenchDay();

    AppState state{clock.now()};
    NotificationCenter notifications;
    PreferencesStore preferences{defaults, notifications, formatters};
    FramingContext framing{preferences, calendar, formatters};
    QtTextMetrics metrics;
    SymbolLibrary symbols;
    ScenePainter painter{metrics, symbols};
    RootWallpaperView view{state, preferences, *usageStore, framing, metrics, {}};

private:
    void fillApplications();
    void fillMachine();
    void fillPlans();
    void fillSentences();
};

} // namespace zeph
