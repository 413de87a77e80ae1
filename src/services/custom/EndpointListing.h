// SPDX-License-Identifier: MIT
#pragma once

#include "services/custom/JsonLeaves.h"

#include <QString>

#include <optional>
#include <vector>

namespace zeph {

/// What there is to choose from at an endpoint.
struct EndpointListing {
    std::vector<JsonLeaf> leaves;
    std::optional<QString> error; ///< why nothing could be read

    bool operator==(const EndpointListing &) const = default;
};

} // namespace zeph
