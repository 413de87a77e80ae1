// SPDX-License-Identifier: MIT
#include "services/simple/RedditProfile.h"

#include "services/simple/FirstInt.h"
#include "services/web/ProviderHTTP.h"
#include "services/web/Saturating.h"
#include "wording/StatFraming.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

/// `{opening}[^>]*>\s*([\d,]+)`. Where no number follows the tag's end, the search goes on from
/// there and not from inside the tag, which would end at the same place again.
QString numberAfterTag(const QString &opening) {
    return opening + uR"([^>]*+(?:>\s*+([\d,]++)|(*SKIP)(*FAIL)))"_s;
}

/// `([\d,]+)\s*{word}`. A number is tried from its first digit alone: what does not fit from there
/// does not fit from its middle either.
QString numberBefore(const QString &word) {
    return uR"((?<![\d,])([\d,]++)\s*+)"_s + word;
}

std::optional<qint64> find(const QString &page, const QStringList &patterns) {
    return firstInt(page, patterns, Grouping::commas);
}

} // namespace

QString redditName(const QString &input) {
    QString name = input.trimmed();
    for (const QString &prefix : {u"/u/"_s, u"u/"_s, u"/user/"_s, u"@"_s}) {
        if (name.startsWith(prefix)) {
            name.remove(0, prefix.size());
        }
    }
    return name;
}

RedditFigures oldSiteFigures(const QString &page) {
    const auto post = find(page, {numberAfterTag(u"class=\"karma\""_s)});
    const auto comment = find(page, {numberAfterTag(u"class=\"karma comment-karma\""_s)});
    return {saturating::add(post.value_or(0), comment.value_or(0)),
            find(page, {numberBefore(u"followers"_s)})};
}

void addNewSiteFigures(const QString &page, RedditFigures &figures) {
    if (figures.karma == 0) {
        figures.karma = find(page, {uR"("total_karma"\s*:\s*(\d+))"_s,
                                    uR"("totalKarma"\s*:\s*(\d+))"_s, numberBefore(u"karma"_s)})
                            .value_or(0);
    }
    if (!figures.followers) {
        figures.followers =
            find(page, {uR"("subscribers"\s*:\s*(\d+))"_s, numberBefore(u"followers"_s)});
    }
}

SimpleCard redditCard(const QString &name, const RedditFigures &figures, bool hasNewSite,
                      const FramingContext &framing) {
    const qint64 fewest = hasNewSite ? 1 : 0;
    const bool showsFollowers = figures.followers && *figures.followers >= fewest;
    if (figures.karma < 1 && !showsFollowers) {
        throw ProviderHTTP::err(u"Couldn't read that profile"_s);
    }
    SimpleCard card{u"u/"_s + name};
    if (figures.karma >= 1) {
        card.chips.push_back(
            {u"flame"_s, StatFraming::count(figures.karma, framing) + u" karma"_s});
    }
    if (showsFollowers) {
        card.chips.push_back(
            {u"person.2"_s, StatFraming::count(*figures.followers, framing) + u" followers"_s});
    }
    return card;
}

} // namespace zeph
