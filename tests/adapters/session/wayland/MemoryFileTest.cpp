// SPDX-License-Identifier: MIT
#include "adapters/session/wayland/MemoryFile.h"

#include "support/FullDisk.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>

#include <vector>

namespace zeph {

namespace {

constexpr std::size_t kSize = 5000;

} // namespace

TEST(MemoryFileTest, cannotBeCutOffByWhoeverHasIt) {
    const auto file = MemoryFile::create(kSize);
    ASSERT_TRUE(file);
    EXPECT_NE(fcntl(file->descriptor(), F_GET_SEALS) & F_SEAL_SHRINK, 0);
    EXPECT_NE(ftruncate(file->descriptor(), 1), 0) << "the one who reads it would crash";
}

TEST(MemoryFileTest, holdsWhatItIsGivenAtFirst) {
    const std::vector<unsigned char> bytes(kSize, 7);
    const auto copied = MemoryFile::create(kSize, bytes.data());
    const auto empty = MemoryFile::create(kSize);
    ASSERT_TRUE(copied && empty);
    EXPECT_EQ(std::vector<unsigned char>(copied->data(), copied->data() + kSize), bytes);
    EXPECT_EQ(empty->data()[kSize - 1], 0);
}

TEST(MemoryFileTest, keepsADraftToItself) {
    const auto file = MemoryFile::create(kSize);
    ASSERT_TRUE(file);
    const auto draft = file->draft();
    ASSERT_TRUE(draft);
    draft->data()[0] = 1;
    EXPECT_EQ(file->data()[0], 0);
    EXPECT_EQ(file->draft()->data()[0], 0);
}

TEST(MemoryFileTest, isNoneWhereTheSystemRefusesIt) {
    const FullDisk disk(0);
    EXPECT_FALSE(MemoryFile::create(kSize));
}

} // namespace zeph
