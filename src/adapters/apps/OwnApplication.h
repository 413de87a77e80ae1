// SPDX-License-Identifier: MIT
#pragma once

namespace zeph {

struct ApplicationHints;

/// Whether a window that tells this is one of ours, by the name that all of them bear. The process
/// does not tell: in a sandbox it has another number than outside, and each sandbox the same ones.
bool isOwnApplication(const ApplicationHints &hints);

} // namespace zeph
