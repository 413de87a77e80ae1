// SPDX-License-Identifier: MIT
#include "model/DeviceBattery.h"

#include <algorithm>
#include <initializer_list>

using namespace Qt::StringLiterals;

namespace zeph {

QString DeviceBattery::symbol() const {
    const QString lowered = name.toLower();
    const auto has = [&lowered](std::initializer_list<QStringView> words) {
        return std::any_of(words.begin(), words.end(),
                           [&lowered](QStringView word) { return lowered.contains(word); });
    };
    // "wireless" stands in the first row on purpose: a wireless mouse shows as headphones.
    if (has({u"airpods", u"headphone", u"earbuds", u"wireless", u"buds", u"headset"})) {
        return u"airpodspro"_s;
    }
    if (has({u"mouse"})) {
        return u"magicmouse"_s;
    }
    if (has({u"keyboard"})) {
        return u"keyboard"_s;
    }
    if (has({u"trackpad"})) {
        return u"rectangle.and.hand.point.up.left"_s;
    }
    if (has({u"pencil"})) {
        return u"pencil"_s;
    }
    return u"battery.75"_s;
}

} // namespace zeph
