// SPDX-License-Identifier: MIT
#include "wording/ByteCount.h"

#include <gmock/gmock.h>

#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

TEST(ByteCount, showsFileSizesInPowersOf1000) {
    const std::pair<qint64, QString> rows[] = {{0, u"Zero KB"_s},
                                               {1, u"1 byte"_s},
                                               {2, u"2 bytes"_s},
                                               {999, u"999 bytes"_s},
                                               {1000, u"1 KB"_s},
                                               {1499, u"1 KB"_s},
                                               {1500, u"2 KB"_s},
                                               {999'499, u"999 KB"_s},
                                               {999'500, u"1 MB"_s},
                                               {1'000'000, u"1 MB"_s},
                                               {1'250'000, u"1.3 MB"_s},
                                               {1'249'999, u"1.2 MB"_s},
                                               {10'000'000, u"10 MB"_s},
                                               {999'949'999, u"999.9 MB"_s},
                                               {999'950'000, u"1 GB"_s},
                                               {1'500'000'000, u"1.5 GB"_s},
                                               {12'345'000'000, u"12.35 GB"_s},
                                               {12'040'000'000, u"12.04 GB"_s},
                                               {500'107'862'016, u"500.11 GB"_s},
                                               {999'995'000'000, u"1 TB"_s},
                                               {4'000'787'030'016, u"4 TB"_s},
                                               {1'234'000'000'000'000, u"1.23 PB"_s},
                                               {std::numeric_limits<qint64>::max(), u"9.22 EB"_s}};
    for (const auto &[bytes, text] : rows) {
        EXPECT_EQ(byteCountFile(bytes).toStdString(), text.toStdString()) << bytes;
    }
}

TEST(ByteCount, putsASignBeforeANegativeSize) {
    EXPECT_EQ(byteCountFile(-1), u"-1 byte"_s);
    EXPECT_EQ(byteCountFile(-1500), u"-2 KB"_s);
    EXPECT_EQ(byteCountFile(std::numeric_limits<qint64>::min()), u"-9.22 EB"_s);
}

TEST(ByteCount, showsRatesInPowersOf1024FromKBToGB) {
    const qint64 kilo = 1024;
    const std::pair<qint64, QString> rows[] = {{0, u"Zero KB"_s},
                                               {511, u"Zero KB"_s},
                                               {512, u"1 KB"_s},
                                               {1000, u"1 KB"_s},
                                               {1535, u"1 KB"_s},
                                               {1536, u"2 KB"_s},
                                               {1023 * kilo, u"1023 KB"_s},
                                               {1023 * kilo + 511, u"1023 KB"_s},
                                               {1023 * kilo + 512, u"1 MB"_s},
                                               {kilo * kilo, u"1 MB"_s},
                                               {kilo * kilo * 3 / 2, u"1.5 MB"_s},
                                               {kilo * kilo * kilo, u"1 GB"_s},
                                               {kilo * kilo * kilo * 5 / 4, u"1.25 GB"_s},
                                               {kilo * kilo * kilo * kilo * 2, u"2048 GB"_s}};
    for (const auto &[bytes, text] : rows) {
        EXPECT_EQ(byteCountRate(bytes).toStdString(), text.toStdString()) << bytes;
    }
}

} // namespace zeph
