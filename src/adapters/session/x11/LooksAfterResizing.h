// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <optional>

namespace zeph {

/// When to look for another picture of the desktop after its size changed. Caja may show one
/// without a word: at once or, where pictures are large or the computer is busy, later.
class LooksAfterResizing {
public:
    /// The size changed now: all looks are to come.
    void begin() { m_done = 0; }

    /// How long it is to the next look from the one before, or from the beginning; absent after the
    /// last one, and before any size changed.
    std::optional<std::chrono::milliseconds> next() {
        return m_done < kRests.size() ? std::optional(kRests.at(m_done++)) : std::nullopt;
    }

private:
    static constexpr std::array<std::chrono::milliseconds, 4> kRests{
        {std::chrono::milliseconds(100), std::chrono::milliseconds(300),
         std::chrono::milliseconds(1000), std::chrono::milliseconds(4000)}};

    std::size_t m_done = kRests.size();
};

} // namespace zeph
