// SPDX-License-Identifier: MIT
#include "adapters/session/x11/EarlierPictureRecord.h"

#include <gtest/gtest.h>

namespace zeph {

namespace {

const EarlierPictureRecord kRecord{
    0x600001, 0x600002, {0x400031, 32, {3120, 1200}, {0x400028, 0x400050}}, 0x1234567};

} // namespace

TEST(EarlierPictureRecord, isReadAsItWasWritten) {
    EXPECT_EQ(recordIn(numbersOf(kRecord)), kRecord);
    EXPECT_EQ(numbersOf(kRecord).front(), 0x81234567) << "no pixmap has this number";
}

TEST(EarlierPictureRecord, isReadAsEarlierVersionsWroteIt) {
    auto record = kRecord;
    record.machine = 0;
    EXPECT_EQ(recordIn({0x600001, 0x600002, 0x400031, 3120, 1200, 32, 0x400028, 0x400050}), record);
    record.mark = XCB_NONE;
    EXPECT_EQ(recordIn({0x600001, 0x400031, 3120, 1200, 32, 0x400028, 0x400050}), record);
}

TEST(EarlierPictureRecord, isOfTheMachineThatWroteIt) {
    const auto here = machineNumber("0123456789abcdef");
    EXPECT_EQ(here, machineNumber("0123456789abcdef"));
    EXPECT_NE(here, machineNumber("0123456789abcdee"));
    EXPECT_EQ(machineNumber({}), 0U);
    auto record = kRecord;
    EXPECT_FALSE(isLeftHere(record, here, true));
    EXPECT_FALSE(isLeftHere(record, here, false));
    EXPECT_FALSE(isLeftHere(record, machineNumber({}), true));
    record.machine = here;
    EXPECT_TRUE(isLeftHere(record, here, true));
    EXPECT_TRUE(isLeftHere(record, here, false)) << "of a run of this machine on another's display";
    EXPECT_EQ(recordIn(numbersOf(record)), record);
}

TEST(EarlierPictureRecord, isOfTheMachineWithTheDisplayWhereNobodyWroteIt) {
    auto record = kRecord;
    record.machine = 0;
    EXPECT_TRUE(isLeftHere(record, 1, true));
    EXPECT_FALSE(isLeftHere(record, 1, false));
    EXPECT_FALSE(isLeftHere(record, 0, false));
}

TEST(EarlierPictureRecord, isNoneWithoutAPictureToPutBack) {
    auto record = kRecord;
    record.kept = XCB_PIXMAP_NONE;
    EXPECT_EQ(recordIn(numbersOf(record)), std::nullopt);
    auto numbers = numbersOf(kRecord);
    numbers[2] = XCB_NONE; // its mark
    EXPECT_EQ(recordIn(numbers), std::nullopt);
    record = kRecord;
    record.target.pixmap = XCB_PIXMAP_NONE;
    EXPECT_EQ(recordIn(numbersOf(record)), std::nullopt);
}

TEST(EarlierPictureRecord, isNoneWithoutAWindow) {
    auto record = kRecord;
    record.target.windows.clear();
    EXPECT_EQ(recordIn(numbersOf(record)), std::nullopt);
    EXPECT_EQ(recordIn({}), std::nullopt);
    EXPECT_EQ(recordIn({0x81234567}), std::nullopt);
    EXPECT_EQ(recordIn({0x600001}), std::nullopt);
}

TEST(EarlierPictureRecord, isNoneOfASizeOrDepthThatNoPictureHas) {
    auto numbers = numbersOf(kRecord);
    for (const std::size_t extent : {4, 5}) {
        for (const std::uint32_t wrong : {0U, 65536U, 0xFFFFFFFFU}) {
            auto damaged = numbers;
            damaged[extent] = wrong;
            EXPECT_EQ(recordIn(damaged), std::nullopt) << extent << ": " << wrong;
        }
    }
    numbers[6] = 16;
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
