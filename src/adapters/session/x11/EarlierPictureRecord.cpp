// SPDX-License-Identifier: MIT
#include "adapters/session/x11/EarlierPictureRecord.h"

#include "adapters/session/x11/X11Connection.h"
#include "adapters/session/x11/X11Properties.h"

#include <QCryptographicHash>
#include <QtEndian>

#include <algorithm>
#include <cstddef>
#include <limits>
#include <utility>

namespace zeph {

namespace {

constexpr std::size_t kNumbersBeforeTheWindows = 7;

// No number of a pixmap has this bit, with which it is told from the machine.
constexpr std::uint32_t kMachineBit = 0x80000000;

// Some desktop programs have a window for each monitor.
constexpr std::size_t kMostWindows = 32;
constexpr std::uint32_t kMostNumbers =
    static_cast<std::uint32_t>(kNumbersBeforeTheWindows + kMostWindows);

xcb_atom_t property(X11Connection &connection) {
    return connection.atom(X11Atom::earlierPicture);
}

// Pixmaps are measured in unsigned words of 16 bits.
bool isExtent(std::uint32_t number) {
    return number > 0 && number <= std::numeric_limits<std::uint16_t>::max();
}

/// What stands before the windows, from the target's pixmap on.
std::optional<RootPixmapTarget> targetIn(const std::vector<std::uint32_t> &numbers,
                                         std::size_t first) {
    constexpr std::size_t form = 4;
    if (numbers.size() < first + form || numbers.size() - first > form + kMostWindows ||
        !isExtent(numbers[first + 1]) || !isExtent(numbers[first + 2]) ||
        (numbers[first + 3] != 24 && numbers[first + 3] != 32)) {
        return std::nullopt;
    }
    RootPixmapTarget target;
    target.pixmap = numbers[first];
    target.size = {static_cast<int>(numbers[first + 1]), static_cast<int>(numbers[first + 2])};
    target.depth = static_cast<std::uint8_t>(numbers[first + 3]);
    target.windows.assign(numbers.begin() + static_cast<std::ptrdiff_t>(first + form),
                          numbers.end());
    return refusalOf(target).isEmpty() ? std::optional(target) : std::nullopt;
}

} // namespace

std::vector<std::uint32_t> numbersOf(const EarlierPictureRecord &record) {
    std::vector<std::uint32_t> numbers;
    if (record.machine != 0) {
        numbers.push_back(record.machine | kMachineBit);
    }
    numbers.push_back(record.kept);
    if (record.mark != XCB_NONE) {
        numbers.push_back(record.mark);
    }
    const RootPixmapTarget &target = record.target;
    numbers.insert(numbers.end(), {target.pixmap, static_cast<std::uint32_t>(target.size.width()),
                                   static_cast<std::uint32_t>(target.size.height()), target.depth});
    numbers.insert(numbers.end(), target.windows.begin(), target.windows.end());
    return numbers;
}

std::optional<EarlierPictureRecord> recordIn(const std::vector<std::uint32_t> &numbers) {
    EarlierPictureRecord record;
    std::size_t next = 0;
    if (!numbers.empty() && (numbers.front() & kMachineBit) != 0) {
        record.machine = numbers.front() & ~kMachineBit;
        ++next;
    }
    if (numbers.size() <= next || numbers[next] == XCB_PIXMAP_NONE) {
        return std::nullopt;
    }
    record.kept = numbers[next++];
    // A width can't be the number of a pixmap, nor a height a depth.
    auto target = targetIn(numbers, next + 1);
    if (target && numbers[next] != XCB_NONE) {
        record.mark = numbers[next];
    } else {
        target = targetIn(numbers, next);
    }
    if (!target) {
        return std::nullopt;
    }
    record.target = *std::move(target);
    return record;
}

std::uint32_t machineNumber(const QByteArray &id) {
    if (id.isEmpty()) {
        return 0;
    }
    const QByteArray hash = QCryptographicHash::hash("tavi " + id, QCryptographicHash::Sha256);
    return std::max(qFromBigEndian<std::uint32_t>(hash.constData()) & ~kMachineBit, 1U);
}

bool isLeftHere(const EarlierPictureRecord &record, std::uint32_t here, bool isDisplayHere) {
    return record.machine == 0 ? isDisplayHere : record.machine == here;
}

std::optional<EarlierPictureRecord> readRecord(X11Connection &connection) {
    const auto reply = readNow(connection, connection.root(), property(connection),
                               XCB_ATOM_CARDINAL, kMostNumbers + 1);
    return recordIn(numbersIn(reply.get()));
}

void writeRecord(X11Connection &connection, const std::optional<EarlierPictureRecord> &record) {
    if (!record) {
        xcb_delete_property(connection.xcb(), connection.root(), property(connection));
        return;
    }
    auto numbers = numbersOf(*record);
    numbers.resize(std::min<std::size_t>(numbers.size(), kMostNumbers));
    xcb_change_property(connection.xcb(), XCB_PROP_MODE_REPLACE, connection.root(),
                        property(connection), XCB_ATOM_CARDINAL, 32,
                        static_cast<std::uint32_t>(numbers.size()), numbers.data());
}

} // namespace zeph
