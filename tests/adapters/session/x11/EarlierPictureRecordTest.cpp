// SPDX-License-Identifier: MIT
#include "adapters/session/x11/EarlierPictureRecord.h"

#include <gtest/gtest.h>

namespace zeph {

namespace {

const EarlierPictureRecord kRecord{
    0x600001, 0x600002, {0x400031, 32, {3120, 1200}, {0x400028, 0x400050}}};

} // namespace

TEST(EarlierPictureRecord, isReadAsItWasWritten) {
    EXPECT_EQ(recordIn(numbersOf(kRecord)), kRecord);
}

TEST(EarlierPictureRecord, isNoneWithoutAPictureToPutBack) {
    auto record = kRecord;
    record.kept = XCB_PIXMAP_NONE;
    EXPECT_EQ(recordIn(numbersOf(record)), std::nullopt);
    record = kRecord;
    record.mark = XCB_NONE;
    EXPECT_EQ(recordIn(numbersOf(record)), std::nullopt);
    record = kRecord;
    record.target.pixmap = XCB_PIXMAP_NONE;
    EXPECT_EQ(recordIn(numbersOf(record)), std::nullopt);
}

TEST(EarlierPictureRecord, isNoneWithoutAWindow) {
    auto record = kRecord;
    record.target.windows.clear();
    EXPECT_EQ(recordIn(numbersOf(record)), std::nullopt);
    EXPECT_EQ(recordIn({}), std::nullopt);
}

TEST(EarlierPictureRecord, isNoneOfASizeOrDepthThatNoPictureHas) {
    auto numbers = numbersOf(kRecord);
    for (const std::size_t extent : {3, 4}) {
        for (const std::uint32_t wrong : {0U, 65536U, 0xFFFFFFFFU}) {
            auto damaged = numbers;
            damaged[extent] = wrong;
            EXPECT_EQ(recordIn(damaged), std::nullopt) << extent << ": " << wrong;
        }
    }
    numbers[5] = 16;
    EXPECT_EQ(recordIn(numbers), std::nullopt);
}

TEST(EarlierPictureRecord, isNoneWithMoreWindowsThanADesktopHas) {
    auto record = kRecord;
    record.target.windows.resize(32, 1);
    EXPECT_NE(recordIn(numbersOf(record)), std::nullopt);
    record.target.windows.resize(33, 1);
    EXPECT_EQ(recordIn(numbersOf(record)), std::nullopt);
}

TEST(RootPixmapTarget, isRefusedInWords) {
    EXPECT_EQ(refusalOf(kRecord.target), QString());
    auto target = kRecord.target;
    target.depth = 16;
    EXPECT_TRUE(refusalOf(target).contains(QStringLiteral("16 bits a pixel")));
    target = kRecord.target;
    target.size = {};
    EXPECT_TRUE(refusalOf(target).contains(QStringLiteral("without pixels")));
    target = kRecord.target;
    target.windows.clear();
    EXPECT_TRUE(refusalOf(target).contains(QStringLiteral("to itself")));
}

} // namespace zeph
