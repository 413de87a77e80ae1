// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/scene/TextStyle.h"

#include <QString>
#include <QStringList>

#include <functional>

/// The families that texts are set in, by name.
namespace zeph::FontFamilies {

/// The families that the letters of a text come from, the most wanted first.
QStringList of(const FontSpec &spec, const std::function<bool(const QString &)> &isInstalled);

/// Every family that a text can name.
QStringList all();

/// Those without which other fonts of the system have to stand in.
QStringList needed();

/// Whether the families are made for the scripts of all letters of `text`. Single letters of such
/// a script may be missing all the same.
bool areMadeFor(const QString &text);

} // namespace zeph::FontFamilies
