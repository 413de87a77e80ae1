// SPDX-License-Identifier: MIT
#include "ui/onboarding/OnboardingWords.h"

using namespace Qt::StringLiterals;

namespace zeph::ui::OnboardingWords {

QString windowTitle() {
    return u"Welcome to Tavi"_s;
}

QString back() {
    return u"Back"_s;
}

QString progress(int number, int count) {
    return u"Step %1 of %2"_s.arg(QString::number(number), QString::number(count));
}

QString welcome() {
    return u"Welcome to Tavi"_s;
}

QString promise() {
    return u"Tavi turns your wallpaper into a calm, living mirror of your day — your time, focus, "
           "weather, and machine. It reads everything privately, on your computer. Nothing ever "
           "leaves it."_s;
}

QString announcement() {
    return u"Next, we'll ask for a few permissions — one at a time. Each is optional."_s;
}

Permission input() {
    return {u"keyboard"_s, u"Typing & mouse rhythm"_s,
            u"to measure your typing rhythm and mouse activity. It never sees what you type, only "
            "timing."_s};
}

Permission location() {
    return {u"location"_s, u"Weather & sunrise"_s,
            u"for your local weather and accurate sunrise and sunset."_s};
}

QString allow() {
    return u"Allow"_s;
}

QString allowed() {
    return u"Allowed"_s;
}

QString openSettings() {
    return u"Open System Settings instead"_s;
}

QString optional() {
    return u"Optional — skip with Continue. Tavi works without it; only this stat stays hidden."_s;
}

QString integrations() {
    return u"Bring in your numbers"_s;
}

QString keys() {
    return u"Your own read-only API keys put live metrics on your wallpaper."_s;
}

std::vector<Source> sources() {
    return {{u"Revenue"_s, u"Stripe, ChartMogul, Lemon Squeezy, Dodo, Polar, Gumroad, TrustMRR"_s},
            {u"Developer"_s, u"GitHub, RSS feeds, any JSON API"_s},
            {u"Audience & markets"_s, u"Reddit, Bluesky, Product Hunt, Hacker News, crypto, FX"_s}};
}

QString later() {
    return u"Add them anytime in Settings → Integrations."_s;
}

QString customizing() {
    return u"Make it yours"_s;
}

std::vector<Tip> choices() {
    return {{u"eye"_s, u"Show or hide any widget — you choose what's on your wallpaper."_s},
            {u"textformat.size"_s, u"Resize widgets to small, medium, or large."_s},
            {u"square.grid.2x2"_s, u"Auto-layout that fits your screen, or reorder it yourself."_s},
            {u"paintpalette"_s, u"Pick your own background color, or let it follow the day."_s}};
}

QString background() {
    return u"Background"_s;
}

QString finish() {
    return u"You're all set"_s;
}

std::vector<Tip> whereThingsAre() {
    return {
        {u"menubar.arrow.up.rectangle"_s, u"Find Tavi in your tray for Settings and updates."_s},
        {u"slider.horizontal.3"_s,
         u"Open Settings to connect integrations and choose what shows."_s},
        {u"sparkle"_s, u"Your wallpaper updates itself quietly all day."_s}};
}

} // namespace zeph::ui::OnboardingWords
