// SPDX-License-Identifier: MIT
#pragma once

#include "FakeSenses.h"

#include "adapters/session/wayland/WaylandConnection.h"
#include "support/WaitUntil.h"

#include <gtest/gtest.h>

#include <optional>
#include <stdexcept>

namespace zeph {

/// A compositor that tells as the test says, and our connection to it.
class SensesTest : public testing::Test {
protected:
    void connect(const FakeSenses::Options &options = {}) {
        compositor.emplace(options);
        connection = WaylandConnection::open(compositor->socket()).connection;
        if (!connection) {
            throw std::runtime_error("the fake compositor can't be reached");
        }
    }

    /// Has everything said and answered on both sides.
    void settle() const {
        for (int i = 0; i < 3; ++i) {
            QCoreApplication::processEvents();
            connection->waitForAnswers();
            QCoreApplication::processEvents();
        }
    }

    std::optional<FakeSenses> compositor;
    std::unique_ptr<WaylandConnection> connection;
};

} // namespace zeph
