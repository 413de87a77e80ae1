// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include <optional>

namespace zeph {

/// Whether the digits of a number may stand in groups.
enum class Grouping { none, commas };

/// The number that the first group of the first fitting pattern caught, each pattern tried in turn
/// on the whole text, case aside, `\d` and `\s` as Unicode has them. A pattern that is no pattern,
/// has no group or caught no 64-bit number is passed over.
///
/// Pages come from strangers and may be as long as the client lets them: a pattern must find or
/// fail in a time linear in the text, so nothing that repeats may be tried anew from its middle.
std::optional<qint64> firstInt(const QString &text, const QStringList &patterns, Grouping grouping);

} // namespace zeph
