// SPDX-License-Identifier: MIT
#include "adapters/icons/IconSettings.h"

#include <QMap>

#include <algorithm>
#include <array>

namespace zeph {

namespace {

/// Values by key, as the tool prints them: texts in single quotes.
using Settings = QMap<QByteArray, QByteArray>;

/// A line is the schema, the key and the value, with a blank between two.
Settings settingsIn(const QByteArray &list) {
    Settings settings;
    for (const QByteArray &line : list.split('\n')) {
        const qsizetype key = line.indexOf(' ') + 1;
        const qsizetype value = line.indexOf(' ', key) + 1;
        if (key > 0 && value > key) {
            settings.insert(line.mid(key, value - key - 1), line.mid(value).trimmed());
        }
    }
    return settings;
}

bool isOn(const Settings &settings, const QByteArray &key) {
    return settings.value(key, "true") == "true";
}

struct ExtensionSize {
    QByteArrayView name;
    QSizeF element; ///< an icon with its name, in points
};

// As version 47 has them.
constexpr std::array kExtensionSizes{
    ExtensionSize{"'tiny'", {70, 80}}, ExtensionSize{"'small'", {90, 90}},
    ExtensionSize{"'standard'", {120, 106}}, ExtensionSize{"'large'", {130, 138}}};
constexpr auto kUsualSize = kExtensionSizes[2];

// Around each icon, and what columns become wider by to fill the width.
constexpr double kExtensionSpacing = 2;
constexpr double kWidestColumn = 1.1;

} // namespace

std::optional<int> iconsBesideFilesIn(const QByteArray &settings) {
    const Settings all = settingsIn(settings);
    std::optional<int> count;
    for (const QByteArray key : {"computer-icon-visible", "home-icon-visible", "trash-icon-visible",
                                 "network-icon-visible"}) {
        if (all.contains(key)) {
            count = count.value_or(0) + (isOn(all, key) ? 1 : 0);
        }
    }
    return count;
}

ExtensionIconSettings extensionIconSettingsIn(const QByteArray &settings) {
    const Settings all = settingsIn(settings);
    const QByteArray name = all.value("icon-size");
    const auto *const known =
        std::find_if(kExtensionSizes.begin(), kExtensionSizes.end(),
                     [&](const ExtensionSize &size) { return size.name == name; });
    const QSizeF element = (known == kExtensionSizes.end() ? kUsualSize : *known).element;
    ExtensionIconSettings result;
    result.grid.cell = {kWidestColumn * (element.width() + 4 * kExtensionSpacing),
                        element.height() + 4 * kExtensionSpacing};
    result.grid.corner = {-kExtensionSpacing, -kExtensionSpacing};
    result.iconsBesideFiles = (isOn(all, "show-home") ? 1 : 0) + (isOn(all, "show-trash") ? 1 : 0);
    result.areLaidOutFromRight = all.value("start-corner").endsWith("-right'");
    return result;
}

bool listsIconExtension(const QByteArray &extensions) {
    const auto lines = extensions.split('\n');
    return std::any_of(lines.begin(), lines.end(), [](const QByteArray &line) {
        return line.trimmed() == "ding@rastersoft.com";
    });
}

} // namespace zeph
