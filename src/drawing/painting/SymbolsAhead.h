// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/painting/SymbolLibrary.h"

#include <optional>
#include <thread>
#include <vector>

namespace zeph {

struct Scene;

/// The symbols of a scene that its library has not drawn yet, drawn on another thread.
class SymbolsAhead {
public:
    /// Starts to draw. Until `finish` the library must not be used.
    SymbolsAhead(const Scene &scene, double scale, SymbolLibrary &symbols);
    ~SymbolsAhead() { finish(); }
    SymbolsAhead(const SymbolsAhead &) = delete;
    SymbolsAhead &operator=(const SymbolsAhead &) = delete;

    /// Waits until they are drawn, and has the library keep them.
    void finish();

private:
    void want(SymbolLibrary::Wanted wanted);

    SymbolLibrary &m_symbols;
    std::vector<SymbolLibrary::Wanted> m_wanted;
    std::vector<QImage> m_masks;
    std::optional<std::thread> m_thread; // uses the two lists until it is joined
};

} // namespace zeph
