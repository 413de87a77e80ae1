// SPDX-License-Identifier: MIT
#include "adapters/storage/UserDirs.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

/// What a folder has to look like to be handed to the kernel.
void check(const QByteArray &folder) {
    require(folder.startsWith('/') && folder.size() <= 4095);
    require(!folder.contains("//") && !folder.contains('\0') && !folder.contains('\n'));
    require(folder.size() == 1 || !folder.endsWith('/'));
    require(folder != "/home/ada");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    for (const char *home : {"/home/ada", "/home//ada/"}) {
        if (const auto folder = zeph::desktopFolderIn(bytes, home)) {
            check(*folder);
        }
    }
    if (const auto folder = zeph::desktopFolderIn(bytes, QByteArray())) {
        require(folder->startsWith('/'));
    }
    return 0;
}
