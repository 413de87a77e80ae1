// SPDX-License-Identifier: MIT
#include "history/HistoryAhead.h"

#include "base/StartedThread.h"

#include <utility>

namespace zeph {

HistoryAhead::HistoryAhead(QString folder) : m_folder(std::move(folder)) {
    Database::readEnvironment();
    m_thread = startedThread([this] { m_opened = openHistory(m_folder); });
    if (!m_thread) {
        m_opened = openHistory(m_folder);
    }
}

HistoryAhead::~HistoryAhead() {
    finish();
}

OpenHistory HistoryAhead::take() {
    finish();
    return std::move(m_opened);
}

void HistoryAhead::finish() {
    if (m_thread) {
        m_thread->join();
        m_thread.reset();
    }
}

} // namespace zeph
