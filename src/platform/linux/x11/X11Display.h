// SPDX-License-Identifier: MIT
#pragma once

namespace zeph::X11Display {

/// True when the display of the environment can be reached now. The toolkit aborts the process
/// without one, so this is asked first.
bool isReachable();

} // namespace zeph::X11Display
