// SPDX-License-Identifier: MIT
#pragma once

#include "base/NotificationCenter.h"
#include "drawing/painting/QtTextMetrics.h"
#include "drawing/painting/ScenePainter.h"
#include "drawing/painting/SceneRenderer.h"
#include "drawing/painting/SymbolLibrary.h"
#include "model/AppState.h"
#include "settings/PreferencesStore.h"
#include "support/FakePlatform.h"
#include "widgets/RootWallpaperView.h"
#include "wording/FramingContext.h"

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
