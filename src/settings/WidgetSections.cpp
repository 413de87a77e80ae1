// SPDX-License-Identifier: MIT
#include "settings/WidgetKind.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

using enum WidgetKind;

WidgetSection section(const QString &title, const QString &subtitle,
                      std::vector<WidgetKind> kinds) {
    return {title, title, subtitle, std::move(kinds)};
}

} // namespace

const std::vector<WidgetSection> &settingsSections() {
    static const std::vector<WidgetSection> sections = {
        section(u"Essentials"_s, u"Time, weather, and your schedule"_s,
                {clock, weather, sun, airQuality, meeting}),
        section(u"Focus & apps"_s, u"What you're doing and where your time goes"_s,
                {currentApp, topApp, appRanking, rhythm, desktop}),
        section(u"System"_s, u"Your computer and connected devices"_s,
                {machine, devices, progress}),
        section(u"Calendar & tasks"_s, u"Reminders and countdowns"_s, {reminders, countdowns}),
        section(u"Inspiration"_s, u"A daily quote, history fact, or the ISS"_s,
                {quote, onThisDay, iss}),
        section(u"Revenue"_s, u"Business metrics from your integrations"_s,
                {revenue, chartmogul, lemonsqueezy, dodo, gumroad, polar, trustmrr}),
        section(u"Developer"_s, u"GitHub, feeds, and custom endpoints"_s,
                {github, rss, customAPIs}),
        section(u"Followers & quick stats"_s,
                u"Domain rating, crypto, currency, and follower counts"_s,
                {ahrefs, coingecko, currency, hackernews, reddit, producthunt, bluesky}),
    };
    return sections;
}

} // namespace zeph
