// SPDX-License-Identifier: MIT
#pragma once

#include "services/simple/SimpleCard.h"

#include <optional>

namespace zeph {

struct FramingContext;

/// What the pages of a profile tell so far.
struct RedditFigures {
    qint64 karma = 0; ///< 0 as long as no page tells it
    std::optional<qint64> followers = {};

    bool operator==(const RedditFigures &) const = default;
};

/// The bare name: trimmed, and each of "/u/", "u/", "/user/" and "@" dropped once, in this order.
QString redditName(const QString &input);

RedditFigures oldSiteFigures(const QString &page);

/// Fills in from the page of the main site what the old one did not tell.
void addNewSiteFigures(const QString &page, RedditFigures &figures);

/// `hasNewSite` is false when the main site had to be asked and did not answer: then followers of 0
/// are shown as well. Throws `ServiceError` when there is nothing to show.
SimpleCard redditCard(const QString &name, const RedditFigures &figures, bool hasNewSite,
                      const FramingContext &framing);

} // namespace zeph
