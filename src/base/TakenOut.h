// SPDX-License-Identifier: MIT
#pragma once

#include <QUuid>

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>
#include <vector>

namespace zeph {

/// A record that was taken out of a list, and where it stood.
template <typename Record>
struct TakenOut {
    Record record;
    std::size_t place = 0;
    QUuid next = {}; ///< the record that stood behind it; null for the last one

    bool operator==(const TakenOut &) const = default;
};

/// The record with that id.
template <typename List>
auto placeOf(List &list, const QUuid &id) {
    return std::find_if(list.begin(), list.end(),
                        [&id](const auto &record) { return record.id == id; });
}

/// Takes the record with that id out of the list, and for good any other that has the same id;
/// absent when there is none.
template <typename Record>
std::optional<TakenOut<Record>> takeOut(std::vector<Record> &list, const QUuid &id) {
    const auto found = placeOf(list, id);
    if (found == list.end()) {
        return std::nullopt;
    }
    const auto next =
        std::find_if(found, list.end(), [&id](const Record &record) { return record.id != id; });
    TakenOut<Record> taken{*found, static_cast<std::size_t>(std::distance(list.begin(), found)),
                           next == list.end() ? QUuid() : next->id};
    std::erase_if(list, [id](const Record &record) { return record.id == id; });
    return taken;
}

/// Puts a record back: before the one that stood behind it, else at its former place.
template <typename Record>
void putBack(std::vector<Record> &list, TakenOut<Record> taken) {
    auto place = placeOf(list, taken.next);
    if (place == list.end()) {
        const auto former = std::min(taken.place, list.size());
        place = std::next(list.begin(), static_cast<std::ptrdiff_t>(former));
    }
    list.insert(place, std::move(taken.record));
}

} // namespace zeph
