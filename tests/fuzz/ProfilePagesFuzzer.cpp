// SPDX-License-Identifier: MIT
#include "FuzzFraming.h"
#include "services/simple/ProductHuntService.h"
#include "services/simple/RedditProfile.h"
#include "services/web/ServiceError.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

void check(const zeph::SimpleCard &card) {
    bool isClean = !card.headline.isEmpty() && !card.chips.empty() && card.chips.size() <= 2;
    for (const zeph::IntegrationChip &chip : card.chips) {
        isClean = isClean && !chip.icon.isEmpty() && chip.text.front() != u'-';
    }
    if (!isClean) {
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static const zeph::FuzzFraming framing;
    const QString page =
        QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const QString name = QStringLiteral("a");
    zeph::RedditFigures figures = zeph::oldSiteFigures(page);
    const zeph::RedditFigures old = figures;
    zeph::addNewSiteFigures(page, figures);
    if (figures.karma < old.karma || (old.followers && figures.followers != old.followers)) {
        std::abort();
    }
    for (const bool hasNewSite : {false, true}) {
        try {
            check(zeph::redditCard(name, figures, hasNewSite, framing.context));
        } catch (const zeph::ServiceError &) {
            // the page tells nothing
        }
    }
    try {
        check(zeph::productHuntCard(page, name, framing.context));
    } catch (const zeph::ServiceError &) {
        // the page tells nothing
    }
    return 0;
}
