// SPDX-License-Identifier: MIT
#pragma once

#include "services/accounts/CustomAPIConfig.h"
#include "services/accounts/IntegrationConnection.h"

#include <QByteArray>

#include <optional>
#include <vector>

/// The stored JSON of accounts and custom endpoints. Reading is all or nothing: one record that
/// lacks what it needs, or holds a value of another type, loses the whole list.
namespace zeph::coding {

/// What is absent in a record is left out.
QByteArray json(const std::vector<IntegrationConnection> &connections);

/// A record needs its provider and its name; without an id it gets a fresh one.
std::optional<std::vector<IntegrationConnection>> connections(const QByteArray &json);

QByteArray json(const std::vector<CustomAPIConfig> &configs);

/// Understands the flat form of early versions as well: one header line and one path beside the
/// name. The next save stores the present form.
std::optional<std::vector<CustomAPIConfig>> customAPIs(const QByteArray &json);

} // namespace zeph::coding
