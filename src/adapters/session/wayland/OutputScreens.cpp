// SPDX-License-Identifier: MIT
#include "adapters/session/wayland/OutputScreens.h"

#include <algorithm>
#include <iterator>

namespace zeph {

namespace {

// No display is larger, and the counts of bytes stay within their types.
constexpr int kLargestSide = 32767;

bool isUsable(QSize size) {
    return !size.isEmpty() && size.width() <= kLargestSide && size.height() <= kLargestSide;
}

/// In pixels, as the panel stands.
QSize panelSize(const OutputFacts &output) {
    const bool isOnItsSide = (output.transform & 1) != 0; // by 90 or 270 degrees, flipped or not
    return isOnItsSide ? output.mode.transposed() : output.mode;
}

QSize sizeInPoints(const OutputFacts &output) {
    if (output.logicalSize && isUsable(*output.logicalSize)) {
        return *output.logicalSize;
    }
    return panelSize(output) / std::max(1, output.scale);
}

std::optional<Screen> describe(const OutputFacts &output, const ScalingAbilities &abilities) {
    const QSize panel = panelSize(output);
    const QSize points = sizeInPoints(output);
    if (!isUsable(panel) || !isUsable(points)) {
        return std::nullopt;
    }
    const QPoint position = output.logicalPosition.value_or(output.position);
    const QSize pixels = pixelsToFill(points, panel, abilities);
    if (!isUsable(pixels)) {
        return std::nullopt;
    }
    Screen screen;
    screen.frame = QRectF(position, points);
    screen.visibleFrame = screen.frame;
    // Sizes in points are rounded: by the larger of both no column or row stays unpainted.
    screen.scale = std::max(double(pixels.width()) / points.width(),
                            double(pixels.height()) / points.height());
    screen.deviceFrame = QRect(position, pixels);
    return screen;
}

} // namespace

std::vector<std::optional<Screen>> screensOf(const std::vector<OutputFacts> &outputs,
                                             const ScalingAbilities &abilities) {
    std::vector<ScreenFacts> words;
    std::transform(outputs.begin(), outputs.end(), std::back_inserter(words),
                   [](const OutputFacts &output) { return output.words; });
    const auto identities = screenIdentities(words);
    const auto names = screenNames(words);
    std::vector<std::optional<Screen>> screens;
    for (std::size_t i = 0; i < outputs.size(); ++i) {
        auto screen = describe(outputs[i], abilities);
        if (screen) {
            screen->displayID = connectorNumber(words[i].connector);
            screen->persistentID = identities[i];
            screen->name = names[i];
            screen->connector = words[i].connector;
        }
        screens.push_back(std::move(screen));
    }
    return screens;
}

void leaveOutMirrors(std::vector<std::optional<Screen>> &screens) {
    for (auto &screen : screens) {
        const bool isMirror =
            screen && std::any_of(screens.begin(), screens.end(), [&screen](const auto &other) {
                return other && &other != &screen && other->frame == screen->frame &&
                       (other->scale > screen->scale ||
                        (other->scale == screen->scale && &other < &screen));
            });
        if (isMirror) {
            screen.reset();
        }
    }
}

} // namespace zeph
