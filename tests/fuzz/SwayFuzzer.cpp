// SPDX-License-Identifier: MIT
#include "adapters/session/sway/SwayAnswers.h"
#include "adapters/session/sway/SwayMessages.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <vector>

namespace {

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

std::vector<zeph::SwayMessage> messagesIn(const QByteArray &bytes, qsizetype piece) {
    zeph::SwayMessageReader reader;
    std::vector<zeph::SwayMessage> messages;
    for (qsizetype at = 0; at < bytes.size(); at += piece) {
        reader.add(bytes.constData() + at, std::min(piece, bytes.size() - at));
        while (const auto message = reader.next()) {
            messages.push_back(*message);
        }
    }
    return messages;
}

void readAnswers(const QByteArray &payload) {
    if (const auto workspaces = zeph::swayWorkspacesIn(payload)) {
        for (const auto &workspace : *workspaces) {
            require(workspace.area.isNull() || !workspace.area.isEmpty());
        }
    }
    if (const auto window = zeph::swayFocusedWindowIn(payload)) {
        require(window->process > 0);
    }
    zeph::swayTellsOfTitle(payload);
    zeph::swayWindowChangeIn(payload);
    zeph::swayWorkspaceChangeIn(payload);
    zeph::swaySuccessIn(payload);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    // However it is cut, it says the same.
    const auto messages = messagesIn(bytes, std::max(bytes.size(), qsizetype{1}));
    require(messagesIn(bytes, 1) == messages && messagesIn(bytes, 5) == messages);
    for (const auto &message : messages) {
        readAnswers(message.payload);
    }
    readAnswers(bytes);
    return 0;
}
