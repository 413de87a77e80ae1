// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

class QImage;

namespace zeph {

/// Divides by `divisor` (1 to 65,535) with a multiplication, which a blur does for each pixel.
class Division {
public:
    explicit Division(int divisor)
        : m_factor((one + static_cast<quint64>(divisor) - 1) / static_cast<quint64>(divisor)) {}

    /// `value` over the divisor, rounded down: exact for 0 to 256 times the divisor. The factor is
    /// too large by less than 1, hence the product by less than divisor × 2⁻³²; and what lies
    /// below a whole number lies below it by one over the divisor at least.
    int operator()(int value) const {
        return static_cast<int>(static_cast<quint64>(value) * m_factor >> shift);
    }

private:
    static constexpr int shift = 40;
    static constexpr quint64 one = quint64{1} << shift;
    quint64 m_factor;
};

/// `mask` (Alpha8) blurred like by a Gaussian bell with a deviation of half of `radius` pixels. The
/// blur stays inside the picture: leave `blurReach(radius)` clear pixels around what is blurred.
QImage blurred(const QImage &mask, double radius);

} // namespace zeph
