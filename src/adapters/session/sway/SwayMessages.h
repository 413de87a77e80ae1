// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <cstdint>
#include <optional>

namespace zeph {

/// The kinds of messages that are used, by the numbers of sway-ipc(7).
enum class SwayRequest : std::uint32_t { workspaces = 1, subscribe = 2, tree = 4, version = 7 };

/// Those that sway sends by itself, without the bit that marks them.
enum class SwayEvent : std::uint32_t { workspace = 0, window = 3, barConfig = 4, barState = 20 };

/// One message from sway.
struct SwayMessage {
    std::uint32_t kind = 0; ///< of the request that it answers, or of the event
    bool isEvent = false;
    QByteArray payload;

    bool operator==(const SwayMessage &) const = default;
};

/// A request as it goes through the socket.
QByteArray swayRequest(SwayRequest kind, const QByteArray &payload);

/// Cuts what comes through the socket into messages, in whatever pieces it comes.
class SwayMessageReader {
public:
    /// What a message may hold: a tree of some thousand windows.
    static constexpr std::uint32_t largestPayload = 4 * 1024 * 1024;

    void add(const char *bytes, qsizetype count);

    /// The next whole message; absent while there is none.
    std::optional<SwayMessage> next();

    /// What came is no message, or one that is too large: nothing after it can be made sense of.
    bool isBroken() const { return m_isBroken; }

private:
    QByteArray m_bytes;
    qsizetype m_taken = 0; // of the bytes
    bool m_isBroken = false;
};

} // namespace zeph
