// SPDX-License-Identifier: MIT
#include "adapters/session/x11/EarlierPictureRecord.h"

#include "adapters/session/x11/X11Connection.h"
#include "adapters/session/x11/X11Properties.h"

#include <algorithm>
#include <limits>

namespace zeph {

namespace {

constexpr std::size_t kNumbersBeforeTheWindows = 6;

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

} // namespace

std::vector<std::uint32_t> numbersOf(const EarlierPictureRecord &record) {
    std::vector<std::uint32_t> numbers{record.kept,
                                       record.mark,
                                       record.target.pixmap,
                                       static_cast<std::uint32_t>(record.target.size.width()),
                                       static_cast<std::uint32_t>(record.target.size.height()),
                                       record.target.depth};
    numbers.insert(numbers.end(), record.target.windows.begin(), record.target.windows.end());
    return numbers;
}

std::optional<EarlierPictureRecord> recordIn(const std::vector<std::uint32_t> &numbers) {
    if (numbers.size() <= kNumbersBeforeTheWindows || numbers.size() > kMostNumbers ||
        numbers[0] == XCB_PIXMAP_NONE || numbers[1] == XCB_NONE || !isExtent(numbers[3]) ||
        !isExtent(numbers[4]) || (numbers[5] != 24 && numbers[5] != 32)) {
        return std::nullopt;
    }
    EarlierPictureRecord record;
    record.kept = numbers[0];
    record.mark = numbers[1];
    record.target.pixmap = numbers[2];
    record.target.size = {static_cast<int>(numbers[3]), static_cast<int>(numbers[4])};
    record.target.depth = static_cast<std::uint8_t>(numbers[5]);
    record.target.windows.assign(numbers.begin() + kNumbersBeforeTheWindows, numbers.end());
    return refusalOf(record.target).isEmpty() ? std::optional(record) : std::nullopt;
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
