// SPDX-License-Identifier: MIT
#include "drawing/palette/BackgroundPresets.h"

using namespace Qt::StringLiterals;

namespace zeph {

std::vector<BackgroundPresets::Preset> BackgroundPresets::all() {
    return {
        {u"Midnight"_s, u"#0D0F1F"_s},     {u"Obsidian"_s, u"#060810"_s},
        {u"Deep Ocean"_s, u"#0A1628"_s},   {u"Forest"_s, u"#0A1A14"_s},
        {u"Plum"_s, u"#1A0F24"_s},         {u"Wine"_s, u"#1A0A12"_s},
        {u"Slate"_s, u"#141820"_s},        {u"Warm Charcoal"_s, u"#181612"_s},
        {u"Indigo Night"_s, u"#12102A"_s}, {u"Teal Dusk"_s, u"#0A1E22"_s},
    };
}

Color BackgroundPresets::colorFor(const std::optional<QString> &storedHex) {
    const Color fallback{0.05, 0.06, 0.12, 1};
    return Color::fromHex(storedHex.value_or(u"#0D0F1F"_s)).value_or(fallback);
}

} // namespace zeph
