// SPDX-License-Identifier: MIT
#pragma once

#include "model/QuoteInfo.h"

#include <cstddef>

namespace zeph {

inline constexpr std::size_t sayingCount = 14;

/// A saying that needs no network, with the name that it usually goes by. `index` lies below
/// `sayingCount`.
QuoteInfo saying(std::size_t index);

} // namespace zeph
