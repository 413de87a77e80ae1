// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <map>

namespace zeph {

/// Units of each currency for one unit of the base currency, by upper-case code.
using ExchangeRates = std::map<QString, double>;

} // namespace zeph
