// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

namespace zeph {

/// More attributes than this are in no tag of a feed; a parser's work on a tag grows with their
/// square.
inline constexpr qsizetype mostAttributes = 256;

/// How much of an XML text stands before its first tag with more attributes than that; all of it
/// without one. No such tag is overlooked; behind a DTD, text that reads like one counts, too.
qsizetype lengthBeforeWideTag(QStringView xml);

} // namespace zeph
