// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace zeph {

/// Every city of the weather library, a line each: latitude, longitude, name, state or province,
/// and country, with tabs between them. Empty where the library has no data.
std::string listCities();

} // namespace zeph
