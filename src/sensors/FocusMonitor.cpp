// SPDX-License-Identifier: MIT
#include "sensors/FocusMonitor.h"

#include "platform/FocusFile.h"
#include "sensors/FocusAssertions.h"

namespace zeph {

FocusMonitor::FocusMonitor(FocusFile &file) : m_file(file) {}

void FocusMonitor::sample() {
    const auto contents = m_file.contents();
    m_state = contents ? focusStateIn(*contents) : FocusState::unknown;
}

} // namespace zeph
