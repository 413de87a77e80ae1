// SPDX-License-Identifier: MIT
#include "adapters/kernel/ProcNetworkInterfaces.h"
#include "adapters/kernel/ProcParsers.h"

#include <gtest/gtest.h>

#include <limits>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

const QByteArray kHeadings = "Inter-|   Receive          |  Transmit\n"
                             " face |bytes    packets errs|bytes    packets errs\n";

QByteArray line(const QByteArray &name, quint64 received, quint64 sent) {
    return name + ": " + QByteArray::number(received) + "    12    0    0    0     0     0    3 " +
           QByteArray::number(sent) + "    14    0    0    0     0       0          0\n";
}

TEST(Links, readNamesAndSixtyFourBitCounters) {
    const quint64 large = std::numeric_limits<quint64>::max();
    const auto links = parseLinks(kHeadings + line("    lo", 2, 1) + line("enp3s0", 5, large) +
                                  line("enp3s0.100", 7, 8));
    const std::vector<LinkCounters> expected{
        {u"lo"_s, 1, 2}, {u"enp3s0"_s, large, 5}, {u"enp3s0.100"_s, 8, 7}};
    EXPECT_EQ(links, expected);
}

TEST(Links, mayBeNone) {
    EXPECT_EQ(parseLinks(kHeadings), std::vector<LinkCounters>());
}

TEST(Links, readALargeCounterThatTouchesTheColon) {
    EXPECT_EQ(parseLinks(kHeadings + "eth0:123456789012 0 0 0 0 0 0 0 9 0\n")->at(0),
              (LinkCounters{u"eth0"_s, 9, 123456789012}));
}

TEST(Links, areRefusedTogetherWhereOneCantBeRead) {
    const QByteArray good = kHeadings + line("eth0", 1, 2);
    ASSERT_TRUE(parseLinks(good));
    for (const char *bad :
         {"\n", "eth1\n", "eth1:\n", ": 1 0 0 0 0 0 0 0 2\n", "eth1: 1 0 0 0 0 0 0 0\n",
          "eth1: 1 0 0 0 0 0 0 0 x\n", "eth1: -1 0 0 0 0 0 0 0 2\n",
          "eth1: 99999999999999999999999 0 0 0 0 0 0 0 2\n"}) {
        EXPECT_FALSE(parseLinks(good + bad)) << bad;
    }
}

TEST(Links, areRefusedWhereTheFileIsCutOffWithinALine) {
    const QByteArray whole = kHeadings + line("eth0", 1, 2);
    for (qsizetype length = 0; length < whole.size(); ++length) {
        // A copy of its own, so that the address sanitizer sees each byte read beyond.
        const auto links = parseLinks(QByteArray(whole.constData(), length));
        EXPECT_EQ(links.has_value(), length == kHeadings.size()) << length;
    }
}

TEST(Links, areRefusedWithoutTheFile) {
    EXPECT_FALSE(ProcNetworkInterfaces(u"/no/such/folder"_s).links());
}

} // namespace

} // namespace zeph
