// SPDX-License-Identifier: MIT
#pragma once

#include "history/OpenHistory.h"

#include <optional>
#include <thread>

namespace zeph {

/// A history that another thread opens, while the main thread does what needs none. That thread
/// reads nothing of the environment.
class HistoryAhead {
public:
    /// Starts to open that of `folder`.
    explicit HistoryAhead(QString folder);
    ~HistoryAhead();
    HistoryAhead(const HistoryAhead &) = delete;
    HistoryAhead &operator=(const HistoryAhead &) = delete;

    const QString &folder() const { return m_folder; }

    /// Waits until it is open, and hands it over; once only.
    OpenHistory take();

private:
    void finish();

    QString m_folder;
    OpenHistory m_opened;
    std::optional<std::thread> m_thread; // uses the others until it is joined
};

} // namespace zeph
