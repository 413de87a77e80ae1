// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zeph {

/// Ends the process when `value` is infinite or not a number.
void requireFinite(double value);

/// Cut toward zero. Ends the process when `value` is no number or beyond 64 bits.
qint64 truncated(double value);

/// The nearest integer, halves away from zero. Ends the process as `truncated` does.
qint64 rounded(double value);

/// The printf form "%.1f" with a point whatever the locale: exact ties go to the even digit.
QString oneDecimal(double value);

} // namespace zeph
