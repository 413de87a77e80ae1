// SPDX-License-Identifier: MIT
#pragma once

namespace zeph {

constexpr int ditherSide = 8; // pixels after which the pattern repeats

/// The threshold of an ordered pattern at a pixel, between 0 and 1 with a mean of a half: what is
/// added to a value before its fraction is cut off, so that a soft gradient shows no bands. The
/// bits of x and of x xor y, interleaved from the lowest up.
constexpr float ditherThreshold(int x, int y) {
    unsigned rank = 0;
    for (int bit = 0; bit < 3; ++bit) {
        const unsigned across = static_cast<unsigned>(x) >> bit & 1U;
        const unsigned down = static_cast<unsigned>(y) >> bit & 1U;
        rank = rank << 2 | (across ^ down) << 1 | down;
    }
    return (static_cast<float>(rank) + 0.5F) / (ditherSide * ditherSide);
}

} // namespace zeph
