// SPDX-License-Identifier: MIT
#include "adapters/web/CurlLibrary.h"

#include <gtest/gtest.h>
#include <openssl/crypto.h>
#include <unistd.h>

#include <cstdlib>

namespace zeph {

/// Tells by the status of the process whether ciphers can be used while it ends.
void endWithCiphers() {
    _exit(OPENSSL_init_crypto(0, nullptr) == 1 ? 0 : 1);
}

TEST(CurlLibraryDeathTest, anExitLeavesTheCiphersToTransfersThatAreUnderWay) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto exitBesideTransfers = [] {
        std::atexit(endWithCiphers);
        const CurlLibrary library;
        std::exit(2);
    };
    EXPECT_EXIT(exitBesideTransfers(), testing::ExitedWithCode(0), "");
}

} // namespace zeph
