// SPDX-License-Identifier: MIT
#include "wording/ByteCount.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

using Wide = unsigned __int128; // hundredths of the largest 64-bit count fit

struct Unit {
    const char *name;
    quint64 bytes;
    int decimals;
};

constexpr quint64 k = 1000;
constexpr std::array fileUnits = {Unit{"bytes", 1, 0},
                                  Unit{"KB", k, 0},
                                  Unit{"MB", k *k, 1},
                                  Unit{"GB", k *k *k, 2},
                                  Unit{"TB", k *k *k *k, 2},
                                  Unit{"PB", k *k *k *k *k, 2},
                                  Unit{"EB", k *k *k *k *k *k, 2}};

constexpr std::array rateUnits = {Unit{"KB", 1ULL << 10, 0}, Unit{"MB", 1ULL << 20, 1},
                                  Unit{"GB", 1ULL << 30, 2}};

quint64 tenTo(int decimals) {
    return decimals == 2 ? 100 : decimals == 1 ? 10 : 1;
}

/// `bytes` in the unit's smallest shown step: tenths of a MB, hundredths of a GB.
quint64 steps(quint64 bytes, const Unit &unit) {
    return static_cast<quint64>((Wide(bytes) * tenTo(unit.decimals) + unit.bytes / 2) / unit.bytes);
}

QString withoutTrailingZeros(quint64 count, int decimals) {
    const quint64 scale = tenTo(decimals);
    QString text = QString::number(count / scale);
    QString fraction = QString::number(count % scale).rightJustified(decimals, u'0');
    while (fraction.endsWith(u'0')) {
        fraction.chop(1);
    }
    return decimals == 0 || fraction.isEmpty() ? text : text + u'.' + fraction;
}

QString unitName(const Unit &unit, quint64 count) {
    return unit.bytes == 1 && count == 1 ? u"byte"_s : QString::fromLatin1(unit.name);
}

QString format(qint64 bytes, std::span<const Unit> units, quint64 base) {
    const quint64 size = bytes < 0 ? 0 - static_cast<quint64>(bytes) : static_cast<quint64>(bytes);
    std::size_t chosen = 0;
    while (chosen + 1 < units.size() &&
           steps(size, units[chosen]) >= base * tenTo(units[chosen].decimals)) {
        ++chosen;
    }
    const Unit &unit = units[chosen];
    const quint64 count = steps(size, unit);
    if (count == 0) {
        return u"Zero KB"_s;
    }
    return u"%1%2 %3"_s.arg(bytes < 0 ? u"-"_s : QString(),
                            withoutTrailingZeros(count, unit.decimals), unitName(unit, count));
}

} // namespace

QString byteCountFile(qint64 bytes) {
    return format(bytes, fileUnits, 1000);
}

QString byteCountRate(qint64 bytes) {
    return format(bytes, rateUnits, 1024);
}

} // namespace zeph
