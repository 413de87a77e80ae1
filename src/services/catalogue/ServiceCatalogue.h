// SPDX-License-Identifier: MIT
#pragma once

#include "services/catalogue/ServiceRow.h"

#include <span>

namespace zeph {

/// Every web service that an account can be at. Their order is that in which the accounts of early
/// versions are carried over.
std::span<const ServiceRow> serviceCatalogue();

/// The row of a service, matched exactly; null for a key that is not known.
const ServiceRow *serviceRow(const QString &key);

} // namespace zeph
