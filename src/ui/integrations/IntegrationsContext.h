// SPDX-License-Identifier: MIT
#pragma once

#include "ui/settings/SettingsContext.h"

namespace zeph::ui {

/// What the integrations pane works on. All of it outlives the pane.
struct IntegrationsContext {
    PreferencesStore &preferences;
    IntegrationsStore &integrations;
    const AppState &state;
    RunLoop &runLoop;
    FramingContext framing;
    const ServiceCheck &serviceCheck;

    static IntegrationsContext of(const SettingsContext &all) {
        return {all.preferences, all.integrations, all.state,
                all.runLoop,     all.framing,      all.serviceCheck};
    }
};

} // namespace zeph::ui
