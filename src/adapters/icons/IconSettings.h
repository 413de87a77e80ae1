// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/icons/ListedIcons.h"

#include <QByteArray>

#include <optional>

namespace zeph {

// Each makes sense of what "gsettings list-recursively" prints of one schema. What is not told is
// as the program has it without a choice of the user's.

/// How many icons Caja, or Nemo, shows that are no files: the computer, the home, the trash and the
/// network. Absent when none of the settings is told.
std::optional<int> iconsBesideFilesIn(const QByteArray &settings);

/// What of the settings of GNOME's icons their arrangement depends on.
struct ExtensionIconSettings {
    IconGrid grid = {};
    int iconsBesideFiles = 2;         ///< the home and the trash
    bool areLaidOutFromRight = false; ///< those that nobody moved yet
};

ExtensionIconSettings extensionIconSettingsIn(const QByteArray &settings);

/// Whether the extension with GNOME's icons is among those that "gnome-extensions list" prints.
bool listsIconExtension(const QByteArray &extensions);

} // namespace zeph
