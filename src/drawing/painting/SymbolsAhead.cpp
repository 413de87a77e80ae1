// SPDX-License-Identifier: MIT
#include "drawing/painting/SymbolsAhead.h"

#include "base/StartedThread.h"
#include "drawing/scene/ItemBounds.h"
#include "drawing/scene/Scene.h"

#include <algorithm>
#include <utility>
#include <variant>

namespace zeph {

SymbolsAhead::SymbolsAhead(const Scene &scene, double scale, SymbolLibrary &symbols)
    : m_symbols(symbols) {
    for (const DrawItem &item : scene.items) {
        if (const auto *symbol = std::get_if<SymbolItem>(&item)) {
            want({.identifier = symbol->identifier,
                  .pixels = snappedSquare(symbol->box, scale).width()});
        }
    }
    if (!m_wanted.empty()) {
        m_thread = startedThread([this] {
            for (const SymbolLibrary::Wanted &wanted : m_wanted) {
                m_masks.push_back(m_symbols.drawn(wanted));
            }
        });
    }
}

void SymbolsAhead::want(SymbolLibrary::Wanted wanted) {
    const bool isWanted =
        std::any_of(m_wanted.begin(), m_wanted.end(), [&](const SymbolLibrary::Wanted &other) {
            return other.identifier == wanted.identifier && other.pixels == wanted.pixels;
        });
    if (!isWanted && !m_symbols.isKept(wanted)) {
        m_wanted.push_back(std::move(wanted));
    }
}

void SymbolsAhead::finish() {
    if (!m_thread) {
        return;
    }
    m_thread->join();
    m_thread.reset();
    for (std::size_t index = 0; index < m_masks.size(); ++index) {
        m_symbols.keep(m_wanted[index], m_masks[index]);
    }
}

} // namespace zeph
