// SPDX-License-Identifier: MIT
#include "adapters/session/loss/DisplaySocket.h"

#include <QByteArrayList>

#include <algorithm>

namespace zeph {

namespace {

bool isNumber(const QByteArray &text) {
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), [](char letter) {
        return letter >= '0' && letter <= '9';
    });
}

} // namespace

std::optional<DisplaySocket> compositorSocket(const QByteArray &display,
                                              const QByteArray &runtimeFolder) {
    const bool isPath = display.startsWith('/');
    if (display.isEmpty() || (!isPath && !runtimeFolder.startsWith('/'))) {
        return std::nullopt;
    }
    const QByteArray path = isPath ? display : runtimeFolder + '/' + display;
    const qsizetype end = path.lastIndexOf('/');
    if (end + 1 == path.size()) {
        return std::nullopt;
    }
    return DisplaySocket{path.left(std::max(end, qsizetype{1})), path.mid(end + 1)};
}

std::optional<DisplaySocket> xServerSocket(const QByteArray &display) {
    const qsizetype colon = display.lastIndexOf(':');
    const QByteArray host = display.left(std::max(colon, qsizetype{0}));
    // The number of the screen does not matter.
    const QByteArray number = display.mid(colon + 1).split('.').first();
    if (colon < 0 || !isNumber(number) || (!host.isEmpty() && host != "unix")) {
        return std::nullopt;
    }
    return DisplaySocket{"/tmp/.X11-unix", 'X' + number};
}

} // namespace zeph
