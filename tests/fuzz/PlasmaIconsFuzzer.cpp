// SPDX-License-Identifier: MIT
#include "adapters/icons/DisplayGrid.h"
#include "adapters/icons/PlasmaIconViews.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

/// Whatever is told, words keep two thirds of the width and of the height.
void check(const zeph::DisplayIcons &icons) {
    require(icons.unplaced >= 0 && !icons.leastCell.isEmpty());
    const QRectF frame(0, 0, 1280, 800);
    const zeph::IconScreen screen{frame, frame};
    const QMarginsF taken = zeph::iconMargins(zeph::placedOn(screen, icons), screen, frame);
    require(taken.left() >= 0 && taken.right() >= 0 && taken.top() >= 0);
    require(taken.left() + taken.right() <= frame.width() / 3 + 0.001);
    require(taken.top() <= frame.height() / 3 + 0.001);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const QStringList names{QStringLiteral("a.txt"), QStringLiteral("b")};
    const auto views = zeph::plasmaIconViewsIn(bytes);
    for (const auto &view : views.value_or(std::vector<zeph::PlasmaIconView>())) {
        check(zeph::plasmaIconsOf(view, names));
        check(zeph::plasmaIconsOf(view, std::nullopt));
    }
    return 0;
}
