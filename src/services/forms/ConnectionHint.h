// SPDX-License-Identifier: MIT
#pragma once

#include "settings/WidgetKind.h"

#include <QString>

namespace zeph {

class IntegrationsStore;
class PreferencesStore;

/// True for a widget that is on and has no account, endpoint or quote to show.
bool needsConnectionHint(WidgetKind kind, const PreferencesStore &preferences,
                         const IntegrationsStore &store);

/// What stands under such a widget.
inline QString connectionHint() {
    return QStringLiteral("Add this in Integrations to show it on your wallpaper.");
}

} // namespace zeph
