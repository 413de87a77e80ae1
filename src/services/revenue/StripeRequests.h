// SPDX-License-Identifier: MIT
#pragma once

#include "ports/HttpClient.h"

#include <QString>

#include <optional>
#include <utility>
#include <vector>

namespace zeph {

/// Names and values in the order they are sent, not yet encoded.
using StripeQuery = std::vector<std::pair<QString, QString>>;

/// A GET of `path` below `base`, which ends in a slash.
HttpRequest stripeRequest(const QString &base, const QString &key, const QString &path,
                          const StripeQuery &query);

/// One page of a list: `query` with the page size, after the element of the page before, if any.
StripeQuery stripePage(StripeQuery query, const std::optional<QString> &after);

/// What other currencies are worth in units of `currency`. The URL is not valid for a currency
/// that can't stand in one.
HttpRequest stripeRatesRequest(const QString &root, const QString &currency);

} // namespace zeph
