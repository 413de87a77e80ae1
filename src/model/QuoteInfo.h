// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zeph {

/// The quote of the day.
struct QuoteInfo {
    QString text;
    QString author;

    bool operator==(const QuoteInfo &) const = default;
};

} // namespace zeph
