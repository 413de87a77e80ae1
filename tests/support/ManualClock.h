// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Clock.h"

namespace zeph {

/// A clock that stands until it is moved.
class ManualClock : public Clock {
public:
    explicit ManualClock(double secondsSince1970 = 1'700'000'000.0) : m_now{secondsSince1970} {}

    Date now() const override { return m_now; }
    void set(Date now) { m_now = now; }
    void advance(double seconds) { m_now = m_now + seconds; }

private:
    Date m_now;
};

} // namespace zeph
