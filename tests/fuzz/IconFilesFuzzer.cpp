// SPDX-License-Identifier: MIT
#include "adapters/icons/IconColumns.h"
#include "adapters/icons/IconSettings.h"
#include "adapters/icons/ListedIcons.h"
#include "adapters/icons/PcmanfmIcons.h"
#include "adapters/icons/XfdesktopIcons.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

/// Whatever a file says, words keep two thirds of the width.
void check(const zeph::DesktopIcons &icons) {
    const QRectF frame(0, 0, 1280, 800);
    require(!icons.cell.isEmpty() && icons.unplaced >= 0);
    const QMarginsF columns = zeph::iconColumns(icons, {frame, frame}, frame);
    require(columns.left() >= 0 && columns.right() >= 0);
    require(columns.left() + columns.right() <= frame.width() / 3 + 0.001);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const auto settings = zeph::xfdesktopSettingsIn(bytes);
    require(settings.iconSize >= 16 && settings.iconSize <= 192);
    check(zeph::xfdesktopIconsIn(bytes, settings));
    check(zeph::xfdesktopIconsIn(bytes, {}));
    check(zeph::pcmanfmIconsIn(bytes, 5));
    check(zeph::listedIconsIn(bytes, "metadata::caja-icon-position", zeph::cajaGrid()));
    const auto extension = zeph::extensionIconSettingsIn(bytes);
    check(zeph::listedIconsIn(bytes, "metadata::nautilus-icon-position", extension.grid));
    require(zeph::iconsBesideFilesIn(bytes).value_or(0) <= 4);
    return 0;
}
