// SPDX-License-Identifier: MIT
#pragma once

#include "base/ChangePublisher.h"
#include "ports/Port.h"

#include <QByteArray>

#include <functional>
#include <optional>

namespace zeph {

/// Whether the user asked not to be disturbed, in the form of a file of JSON, which no Linux
/// desktop keeps: adapters write it from what theirs told last. Never blocks. Main thread only.
class FocusFile : public Port {
public:
    /// JSON: {"data": [{"storeAssertionRecords": [...]}]}, with a record for each reason to be
    /// quiet. Absent on a desktop that keeps no such state, and until it has answered.
    virtual std::optional<QByteArray> contents() = 0;

    /// Calls `handler` on the main thread whenever `contents` can answer a question that it had to
    /// refuse, until the subscription ends.
    [[nodiscard]] virtual Subscription subscribe(std::function<void()> handler) = 0;
};

} // namespace zeph
