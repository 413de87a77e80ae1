// SPDX-License-Identifier: MIT
#pragma once

#include "platform/FocusFile.h"

#include <utility>

namespace zeph {

/// A state file that the test writes; there is none until it does.
class FakeFocusFile : public FocusFile {
public:
    std::optional<QByteArray> contents() override {
        ++readings;
        return bytes;
    }

    void setContentsHandler(std::function<void()> handler) override {
        contentsHandler = std::move(handler);
    }

    std::optional<QByteArray> bytes;
    std::function<void()> contentsHandler;
    int readings = 0;
};

} // namespace zeph
