// SPDX-License-Identifier: MIT
#include "sensing/FocusMonitor.h"

#include "ports/FocusFile.h"
#include "sensing/FocusAssertions.h"

namespace zeph {

FocusMonitor::FocusMonitor(FocusFile &file) : m_file(file) {}

void FocusMonitor::sample() {
    const auto contents = m_file.contents();
    m_state = contents ? focusStateIn(*contents) : FocusState::unknown;
}

} // namespace zeph
