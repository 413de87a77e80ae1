// SPDX-License-Identifier: MIT
#include "adapters/session/sway/SwayMessages.h"

#include <array>
#include <cstring>

namespace zeph {

namespace {

// Before each payload: these letters, its length and its kind, in the byte order of the machine.
constexpr std::array<char, 6> kMagic{'i', '3', '-', 'i', 'p', 'c'};
constexpr qsizetype kHeadSize = kMagic.size() + 2 * sizeof(std::uint32_t);
constexpr std::uint32_t kEventBit = 0x80000000;

std::uint32_t numberAt(const char *bytes) {
    std::uint32_t number = 0;
    std::memcpy(&number, bytes, sizeof number);
    return number;
}

void append(QByteArray &bytes, std::uint32_t number) {
    std::array<char, sizeof number> raw{};
    std::memcpy(raw.data(), &number, raw.size());
    bytes.append(raw.data(), raw.size());
}

} // namespace

QByteArray swayRequest(SwayRequest kind, const QByteArray &payload) {
    QByteArray bytes(kMagic.data(), kMagic.size());
    append(bytes, static_cast<std::uint32_t>(payload.size()));
    append(bytes, static_cast<std::uint32_t>(kind));
    return bytes + payload;
}

void SwayMessageReader::add(const char *bytes, qsizetype count) {
    if (m_isBroken) {
        return;
    }
    m_bytes.remove(0, m_taken);
    m_taken = 0;
    m_bytes.append(bytes, count);
}

std::optional<SwayMessage> SwayMessageReader::next() {
    const qsizetype left = m_bytes.size() - m_taken;
    if (m_isBroken || left < kHeadSize) {
        return std::nullopt;
    }
    const char *const head = m_bytes.constData() + m_taken;
    const std::uint32_t size = numberAt(head + kMagic.size());
    if (std::memcmp(head, kMagic.data(), kMagic.size()) != 0 || size > largestPayload) {
        m_isBroken = true;
        m_bytes.clear();
        m_taken = 0;
        return std::nullopt;
    }
    if (left - kHeadSize < qsizetype{size}) {
        return std::nullopt;
    }
    const std::uint32_t kind = numberAt(head + kMagic.size() + sizeof size);
    m_taken += kHeadSize + qsizetype{size};
    return SwayMessage{kind & ~kEventBit, (kind & kEventBit) != 0,
                       QByteArray(head + kHeadSize, qsizetype{size})};
}

} // namespace zeph
