// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace zeph {

/// The width of a text on one line, in points.
using TextWidth = std::function<double(const QString &)>;

/// `string` cut between characters as a reader sees them, with an ellipsis at the tail, so that it
/// is no wider than `width`; empty when not even the ellipsis fits.
QString elideTail(const QString &string, double width, const TextWidth &measure);

/// `string` broken where its language allows it, and at its own line breaks, into lines no wider
/// than `width`. A word wider than that is broken between characters, at least one to a line.
/// Each line has the direction of its whole paragraph, by an invisible mark where it needs one.
QStringList breakIntoLines(const QString &string, double width, const TextWidth &measure);

} // namespace zeph
