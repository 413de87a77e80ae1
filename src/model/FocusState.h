// SPDX-License-Identifier: MIT
#pragma once

namespace zeph {

/// Whether the user asked not to be disturbed.
enum class FocusState { off, on, unknown };

} // namespace zeph
