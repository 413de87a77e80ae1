// SPDX-License-Identifier: MIT
#pragma once

namespace zeph {

class AppState;
class PreferencesStore;
class UsageStore;
struct AccountChoices;
struct FramingContext;
struct Palette;

/// What every widget is drawn from. Nothing here is kept beyond one redraw.
struct WidgetContext {
    const AppState &state;
    const PreferencesStore &preferences;
    const UsageStore &usage;
    const FramingContext &framing;
    const Palette &palette;
    const AccountChoices &accounts;
};

} // namespace zeph
