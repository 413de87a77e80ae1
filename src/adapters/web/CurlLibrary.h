// SPDX-License-Identifier: MIT
#pragma once

namespace zeph {

/// The transfer library, ready for use as long as this lives. One a process, which outlives every
/// client; made before other threads read the environment, because it takes away the variable by
/// which the library would write the keys of all connections to a file.
class CurlLibrary {
public:
    /// Throws `TransportError` when the library can't be made ready.
    CurlLibrary();
    ~CurlLibrary();
    CurlLibrary(const CurlLibrary &) = delete;
    CurlLibrary &operator=(const CurlLibrary &) = delete;
};

} // namespace zeph
