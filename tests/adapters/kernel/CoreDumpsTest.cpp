// SPDX-License-Identifier: MIT
#include "adapters/kernel/CoreDumps.h"

#include <QFile>

#include <gtest/gtest.h>

namespace zeph {

namespace {

TEST(CoreDumps, holdNoMemoryThatAProcessWrote) {
    // core(5): private and shared memory without a file, and huge pages.
    constexpr uint written = 1U << 0 | 1U << 1 | 1U << 5 | 1U << 6;
    QFile filter(QStringLiteral("/proc/self/coredump_filter"));
    ASSERT_TRUE(filter.open(QIODevice::ReadOnly));
    ASSERT_NE(filter.readAll().trimmed().toUInt(nullptr, 16) & written, 0U);
    leaveMemoryOutOfCoreDumps();
    filter.seek(0);
    EXPECT_EQ(filter.readAll().trimmed().toUInt(nullptr, 16) & written, 0U);
}

} // namespace

} // namespace zeph
