// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Screens.h"
#include "settings/PreferenceChoices.h"

#include <QStringList>

namespace zeph {

/// The screens that get a wallpaper: all of them; or the chosen one; or, while the chosen one is
/// unplugged, the main screen, and all where there is no main screen either. A choice that lacks
/// the connector at the end of an identity, or has another word for the maker at its beginning,
/// means the one screen with the rest of it; one with a connector also the screen there that has
/// the same words without it, as its twin was unplugged.
std::vector<Screen> selectedScreens(const DisplaySelection &selection, const Screens &screens);

/// The screen that is meant by the choice of one, which may be written in a former way; absent
/// while it is unplugged.
std::optional<Screen> chosenScreen(const OneScreen &choice, const std::vector<Screen> &all);

/// The identity that tells one built set of windows from another: the persistent identity, else
/// the display number in decimal, else "main".
QString builtIdentity(const Screen &screen);

} // namespace zeph
