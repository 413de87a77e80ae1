// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <set>
#include <variant>

namespace zeph {

enum class WidgetLayoutMode { automatic, manual };
enum class BackgroundMode { solid, automatic, transparent };
enum class UnitSystem { metric, imperial };

/// Which displays carry the wallpaper: all, or the one of this identity.
struct AllDisplays {
    bool operator==(const AllDisplays &) const = default;
};
struct OneScreen {
    QString identity;
    bool operator==(const OneScreen &) const = default;
};
using DisplaySelection = std::variant<AllDisplays, OneScreen>;

/// Which Spaces carry the wallpaper: all, or those of these numbers.
struct AllDesktops {
    bool operator==(const AllDesktops &) const = default;
};
struct SomeDesktops {
    std::set<int> numbers;
    bool operator==(const SomeDesktops &) const = default;
};
using DesktopSelection = std::variant<AllDesktops, SomeDesktops>;

} // namespace zeph
