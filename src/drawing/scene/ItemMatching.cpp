// SPDX-License-Identifier: MIT
#include "drawing/scene/ItemMatching.h"

#include "drawing/scene/SameLook.h"

#include <algorithm>
#include <unordered_map>

namespace zeph {

namespace {

constexpr std::ptrdiff_t none = -1;

/// A part of a list of items.
struct Span {
    const DrawItem *first;
    std::ptrdiff_t count;

    const DrawItem &operator[](std::ptrdiff_t at) const { return first[at]; }
};

/// For each item of `after` an item of `before` of the same look, each given once, or none.
std::vector<std::ptrdiff_t> partners(const Span &before, const Span &after) {
    std::unordered_multimap<std::size_t, std::ptrdiff_t> free;
    for (std::ptrdiff_t at = before.count; at-- > 0;) {
        free.emplace(lookHash(before[at]), at);
    }
    std::vector<std::ptrdiff_t> result;
    for (std::ptrdiff_t at = 0; at < after.count; ++at) {
        const auto candidates = free.equal_range(lookHash(after[at]));
        const auto found =
            std::find_if(candidates.first, candidates.second, [&](const auto &entry) {
                return sameLook(before[entry.second], after[at]);
            });
        result.push_back(found == candidates.second ? none : found->second);
        if (found != candidates.second) {
            free.erase(found);
        }
    }
    return result;
}

/// Keeps the longest run of partners whose order is the same in both lists and frees the others:
/// items that changed places may cover one another differently.
void keepOrdered(std::vector<std::ptrdiff_t> &partner) {
    std::vector<std::size_t> tails; // of the best run of each length
    std::vector<std::ptrdiff_t> previous(partner.size(), none);
    for (std::size_t at = 0; at < partner.size(); ++at) {
        if (partner[at] == none) {
            continue;
        }
        const auto place = std::lower_bound(
            tails.begin(), tails.end(), partner[at],
            [&](std::size_t tail, std::ptrdiff_t value) { return partner[tail] < value; });
        if (place != tails.begin()) {
            previous[at] = static_cast<std::ptrdiff_t>(*(place - 1));
        }
        if (place == tails.end()) {
            tails.push_back(at);
        } else {
            *place = at;
        }
    }
    std::vector<std::ptrdiff_t> kept(partner.size(), none);
    std::ptrdiff_t at = tails.empty() ? none : static_cast<std::ptrdiff_t>(tails.back());
    while (at != none) {
        const auto index = static_cast<std::size_t>(at);
        kept[index] = partner[index];
        at = previous[index];
    }
    partner = std::move(kept);
}

} // namespace

UnmatchedItems unmatchedItems(const std::vector<DrawItem> &before,
                              const std::vector<DrawItem> &after) {
    const auto look = [](const DrawItem &one, const DrawItem &other) {
        return sameLook(one, other);
    };
    const auto head = std::mismatch(before.begin(), before.end(), after.begin(), after.end(), look);
    const auto tail = std::mismatch(before.rbegin(), std::make_reverse_iterator(head.first),
                                    after.rbegin(), std::make_reverse_iterator(head.second), look);
    const Span oldItems{before.data() + (head.first - before.begin()),
                        tail.first.base() - head.first};
    const Span newItems{after.data() + (head.second - after.begin()),
                        tail.second.base() - head.second};

    std::vector<std::ptrdiff_t> partner = partners(oldItems, newItems);
    keepOrdered(partner);
    UnmatchedItems result;
    std::vector<bool> matched(static_cast<std::size_t>(oldItems.count), false);
    for (std::ptrdiff_t at = 0; at < newItems.count; ++at) {
        const std::ptrdiff_t old = partner[static_cast<std::size_t>(at)];
        if (old == none) {
            result.added.push_back(&newItems[at]);
        } else {
            matched[static_cast<std::size_t>(old)] = true;
        }
    }
    for (std::ptrdiff_t at = 0; at < oldItems.count; ++at) {
        if (!matched[static_cast<std::size_t>(at)]) {
            result.removed.push_back(&oldItems[at]);
        }
    }
    return result;
}

} // namespace zeph
