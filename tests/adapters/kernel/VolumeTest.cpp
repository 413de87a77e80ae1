// SPDX-License-Identifier: MIT
#include "adapters/kernel/StatvfsVolume.h"

#include <gtest/gtest.h>
#include <sys/statvfs.h>

#include <limits>

namespace zeph {

namespace {

struct statvfs volume(quint64 blocks, quint64 free, quint64 available) {
    struct statvfs status {};
    status.f_bsize = 1'048'576; // the best size of a transfer, in which nothing is counted
    status.f_frsize = 4096;
    status.f_blocks = blocks;
    status.f_bfree = free;
    status.f_bavail = available;
    return status;
}

} // namespace

TEST(StatvfsVolume, countsAsAvailableWhatIsNotReservedForTheAdministrator) {
    const VolumeCapacity capacity = capacityOf(volume(1000, 300, 250));
    EXPECT_EQ(capacity.totalBytes, 1000 * 4096);
    EXPECT_EQ(capacity.availableBytes, 250 * 4096);
}

TEST(StatvfsVolume, leavesOutWhatIsMoreThanAFileSystemCanHold) {
    const quint64 huge = std::numeric_limits<quint64>::max() / 4096;
    const VolumeCapacity capacity = capacityOf(volume(huge, 1, 1));
    EXPECT_FALSE(capacity.totalBytes);
    EXPECT_EQ(capacity.availableBytes, 4096);
}

TEST(StatvfsVolume, isTheOneOfTheHomeInASandbox) {
    const QString home = QStringLiteral("/home/user");
    EXPECT_EQ(folderOnTheDisk(true, home), home);
    EXPECT_EQ(folderOnTheDisk(false, home), QStringLiteral("/"));
}

} // namespace zeph
