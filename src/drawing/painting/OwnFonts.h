// SPDX-License-Identifier: MIT
#pragma once

/// Which fonts the toolkit knows. Reading the system's whole font configuration takes a quarter
/// of the time until the first frame, and most wallpapers need nothing but the families that are
/// asked for by name. So the program starts with those alone, and takes the whole configuration
/// as soon as something else is wanted.
namespace zeph::OwnFonts {

/// Offers the toolkit the named families only. To be called before there is an application
/// object, on any thread, while nobody changes the environment. Answers false, and changes nothing,
/// when the families of the wallpaper are not all installed or the user's language is written in a
/// script that they don't cover.
bool use();

/// Takes the whole configuration of the system, unless it is in use already. What was shaped
/// before stays as it is. Takes some 15 ms. Answers whether the fonts are others now. To be
/// called when a letter is missing, and before a window with the user's own font. Main thread only.
bool takeAll();

} // namespace zeph::OwnFonts
