// SPDX-License-Identifier: MIT
#pragma once

#include "model/FocusState.h"

namespace zeph {

class FocusFile;

/// Whether the user asked not to be disturbed. Main thread only.
class FocusMonitor {
public:
    explicit FocusMonitor(FocusFile &file);

    /// Reads the state anew.
    void sample();

    FocusState state() const { return m_state; }

private:
    FocusFile &m_file;
    FocusState m_state = FocusState::unknown;
};

} // namespace zeph
