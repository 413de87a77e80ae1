// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <memory>

namespace zeph {

struct X11Free {
    void operator()(void *memory) const { std::free(memory); }
};

/// A reply, event or error that xcb allocated.
template <typename T>
using X11Reply = std::unique_ptr<T, X11Free>;

/// A reply whose type only the asker knows; null when the request failed.
using X11AnyReply = X11Reply<void>;

} // namespace zeph
