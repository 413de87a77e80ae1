// SPDX-License-Identifier: MIT
#include "adapters/gio/GioLibrary.h"

#include <gtest/gtest.h>

namespace zeph {

namespace {

TEST(GioLibrary, hasEveryFunctionOfTheInstalledOne) {
    const GioLibrary *const gio = GioLibrary::loaded();
    ASSERT_NE(gio, nullptr);
    EXPECT_EQ(gio, GioLibrary::loaded());
    GFile *const file = gio->vfsGetFileForPath(gio->vfsGetLocal(), "/tmp/one");
    EXPECT_STREQ(gio->filePeekPath(file), "/tmp/one");
    gio->objectUnref(file);
}

TEST(GioLibrary, isNotThereWhereNoneIsInstalled) {
    EXPECT_EQ(GioLibrary::loadedFrom("libzeph-nowhere.so.0"), nullptr);
}

TEST(GioLibrary, isNotThereWhereAFunctionIsMissing) {
    EXPECT_EQ(GioLibrary::loadedFrom("libgobject-2.0.so.0"), nullptr);
}

} // namespace

} // namespace zeph
