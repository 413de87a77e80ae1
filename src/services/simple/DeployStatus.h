// SPDX-License-Identifier: MIT
#pragma once

#include "model/SimpleIntegrationStats.h"

/// How a deployment stands.
namespace zeph::DeployStatus {

/// The chip of an upper-cased state; one that is not known is shown in its own words.
IntegrationChip chip(const QString &state);

} // namespace zeph::DeployStatus
