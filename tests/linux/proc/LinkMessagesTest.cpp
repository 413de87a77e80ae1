// SPDX-License-Identifier: MIT
#include "platform/linux/proc/LinkMessages.h"

#include "linux/proc/LinkBytes.h"

#include <gtest/gtest.h>

#include <limits>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

constexpr quint32 sequence = 7;

struct Parsed {
    LinkDump state;
    LinkListing listing;
};

Parsed parse(const QByteArray &datagram) {
    Parsed parsed{LinkDump::failed, {}};
    parsed.state = parseLinkMessages(datagram, sequence, parsed.listing);
    return parsed;
}

TEST(LinkMessages, readsNamesAndSixtyFourBitCounters) {
    const quint64 large = std::numeric_limits<quint64>::max() - 1;
    const Parsed parsed = parse(linkMessage(sequence, "lo", 1, 2) +
                                linkMessage(sequence, "enp3s0", large, 5'000'000'000));
    EXPECT_EQ(parsed.state, LinkDump::more);
    const std::vector<LinkCounters> expected{{u"lo"_s, 1, 2}, {u"enp3s0"_s, large, 5'000'000'000}};
    EXPECT_EQ(parsed.listing.links, expected);
    EXPECT_FALSE(parsed.listing.interrupted);
}

TEST(LinkMessages, isDoneAtTheEndMarkAndReadsNothingBehindIt) {
    const Parsed parsed =
        parse(linkMessage(sequence, "lo", 1, 2) + doneMessage(sequence) + QByteArray("rubbish"));
    EXPECT_EQ(parsed.state, LinkDump::done);
    EXPECT_EQ(parsed.listing.links.size(), 1U);
}

TEST(LinkMessages, passesOverAnswersToOtherRequests) {
    const Parsed parsed =
        parse(linkMessage(6, "old", 1, 2) + doneMessage(6) + linkMessage(sequence, "new", 1, 2));
    EXPECT_EQ(parsed.state, LinkDump::more);
    ASSERT_EQ(parsed.listing.links.size(), 1U);
    EXPECT_EQ(parsed.listing.links.at(0).name, u"new"_s);
}

TEST(LinkMessages, failsOnARefusal) {
    nlmsgerr error{};
    error.error = -1;
    EXPECT_EQ(parse(netlinkMessage(NLMSG_ERROR, sequence, bytesOf(error))).state, LinkDump::failed);
}

TEST(LinkMessages, tellsThatTheLinksChangedMeanwhile) {
    const Parsed parsed = parse(linkMessage(sequence, "lo", 1, 2, NLM_F_MULTI | NLM_F_DUMP_INTR) +
                                doneMessage(sequence));
    EXPECT_EQ(parsed.state, LinkDump::done);
    EXPECT_TRUE(parsed.listing.interrupted);
}

TEST(LinkMessages, passesOverALinkWithoutANameOrCounters) {
    const QByteArray nameless = bytesOf(ifinfomsg{}) + attribute(IFLA_STATS64, counters(1, 2));
    const QByteArray uncounted = bytesOf(ifinfomsg{}) + attribute(IFLA_IFNAME, "eth0");
    const Parsed parsed = parse(netlinkMessage(RTM_NEWLINK, sequence, nameless) +
                                netlinkMessage(RTM_NEWLINK, sequence, uncounted) +
                                linkMessage(sequence, "eth1", 3, 4));
    ASSERT_EQ(parsed.listing.links.size(), 1U);
    EXPECT_EQ(parsed.listing.links.at(0).name, u"eth1"_s);
}

TEST(LinkMessages, passesOverCountersThatAreTooShort) {
    const QByteArray link = bytesOf(ifinfomsg{}) + attribute(IFLA_IFNAME, "eth0") +
                            attribute(IFLA_STATS64, counters(1, 2).first(31));
    EXPECT_TRUE(parse(netlinkMessage(RTM_NEWLINK, sequence, link)).listing.links.empty());
}

TEST(LinkMessages, readsCountersOfAnOlderAndOfANewerKernel) {
    for (const QByteArray &block :
         {counters(11, 22).first(32), counters(11, 22) + QByteArray(64, 'x')}) {
        const QByteArray link =
            bytesOf(ifinfomsg{}) + attribute(IFLA_IFNAME, "eth0") + attribute(IFLA_STATS64, block);
        const Parsed parsed = parse(netlinkMessage(RTM_NEWLINK, sequence, link));
        ASSERT_EQ(parsed.listing.links.size(), 1U);
        EXPECT_EQ(parsed.listing.links.at(0), (LinkCounters{u"eth0"_s, 11, 22}));
    }
}

TEST(LinkMessages, readsNoMoreOfANameThanTheKernelAllows) {
    const QByteArray link = bytesOf(ifinfomsg{}) + attribute(IFLA_IFNAME, QByteArray(500, 'e')) +
                            attribute(IFLA_STATS64, counters(1, 2));
    const Parsed parsed = parse(netlinkMessage(RTM_NEWLINK, sequence, link));
    ASSERT_EQ(parsed.listing.links.size(), 1U);
    EXPECT_EQ(parsed.listing.links.at(0).name, QString(16, u'e'));
}

TEST(LinkMessages, failsOnALengthBeyondTheDatagramOrBelowTheHeader) {
    for (const quint32 length : {0U, 15U, 1000U, 0xFFFFFFFFU}) {
        QByteArray message = linkMessage(sequence, "lo", 1, 2);
        std::memcpy(message.data(), &length, sizeof(length));
        EXPECT_EQ(parse(message).state, LinkDump::failed) << length;
    }
}

TEST(LinkMessages, stopsAtAnAttributeOfAnImpossibleLength) {
    for (const quint16 length : {quint16{0}, quint16{3}, quint16{60'000}}) {
        QByteArray broken = attribute(IFLA_MTU, "1234");
        std::memcpy(broken.data(), &length, sizeof(length));
        const QByteArray link = bytesOf(ifinfomsg{}) + attribute(IFLA_IFNAME, "eth0") + broken +
                                attribute(IFLA_STATS64, counters(1, 2));
        const Parsed parsed = parse(netlinkMessage(RTM_NEWLINK, sequence, link));
        EXPECT_TRUE(parsed.listing.links.empty()) << length;
        EXPECT_EQ(parsed.state, LinkDump::more) << length;
    }
}

TEST(LinkMessages, neverMakesALinkOfADatagramCutOffBeforeItsEnd) {
    const QByteArray whole = linkMessage(sequence, "lo", 1, 2);
    for (qsizetype length = 0; length < whole.size(); ++length) {
        // A copy of its own, so that the address sanitizer sees each byte read beyond.
        EXPECT_TRUE(parse(QByteArray(whole.constData(), length)).listing.links.empty()) << length;
    }
    EXPECT_EQ(parse(whole).listing.links.size(), 1U);
}

TEST(LinkMessages, survivesEveryByteBeingWrong) {
    const QByteArray whole = linkMessage(sequence, "enp3s0", 1, 2) + doneMessage(sequence);
    for (qsizetype index = 0; index < whole.size(); ++index) {
        for (int value = 0; value < 256; ++value) {
            QByteArray changed = whole;
            changed[index] = static_cast<char>(value);
            EXPECT_LE(parse(changed).listing.links.size(), 1U);
        }
    }
}

} // namespace

} // namespace zeph
