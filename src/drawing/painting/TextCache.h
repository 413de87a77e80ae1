// SPDX-License-Identifier: MIT
#pragma once

#include <QCache>

namespace zeph {

/// What was found out about texts, as long as it is asked for again: what was not asked for the
/// longest goes first. Each redraw asks for all texts in the same order, so that a cache which is
/// a little too small would hold none of them when they are asked for: one that mostly misses
/// though it is full becomes larger.
template <typename Key, typename Value>
class TextCache {
public:
    /// Holds `kept` short texts at first, and never more than sixteen times as many.
    explicit TextCache(qsizetype kept) : m_cache(kept), m_most(16 * kept) {}

    /// What is kept for `key`, or else what `make` makes.
    template <typename Make>
    Value value(const Key &key, const Make &make) {
        const Value *const known = m_cache.object(key);
        note(known != nullptr);
        if (known != nullptr) {
            return *known;
        }
        auto *made = new Value(make());
        Value value = *made;
        // A long text counts for several, so that the cache is bounded in bytes too.
        m_cache.insert(key, made, 1 + key.text.size() / 64); // may delete it at once
        return value;
    }

private:
    void note(bool isKnown) {
        m_missed += isKnown ? 0 : 1;
        if (++m_asked < m_cache.maxCost()) {
            return;
        }
        const bool isFull = m_cache.totalCost() > m_cache.maxCost() * 3 / 4;
        if (isFull && m_missed > m_asked / 2 && m_cache.maxCost() < m_most) {
            m_cache.setMaxCost(2 * m_cache.maxCost());
        }
        m_asked = 0;
        m_missed = 0;
    }

    QCache<Key, Value> m_cache;
    qsizetype m_most;
    qsizetype m_asked = 0;
    qsizetype m_missed = 0;
};

} // namespace zeph
