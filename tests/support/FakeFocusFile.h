// SPDX-License-Identifier: MIT
#pragma once

#include "ports/FocusFile.h"

#include <utility>

namespace zeph {

/// A state file that the test writes; there is none until it does.
class FakeFocusFile : public FocusFile {
public:
    std::optional<QByteArray> contents() override {
        ++readings;
        return bytes;
    }

    Subscription subscribe(std::function<void()> handler) override {
        return changes.subscribe(std::move(handler));
    }

    std::optional<QByteArray> bytes;
    ChangePublisher changes;
    int readings = 0;
};

} // namespace zeph
