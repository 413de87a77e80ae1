// SPDX-License-Identifier: MIT
#include "adapters/session/x11/PictureEnlargement.h"

#include <gtest/gtest.h>

namespace zeph {

TEST(PictureEnlargement, isWhatFitsTheWindow) {
    PictureEnlargement enlargement;
    EXPECT_EQ(enlargement.take({1280, 800}, {1280, 800}), 1);
    EXPECT_EQ(enlargement.take({1280, 800}, {2560, 1600}), 2);
    EXPECT_EQ(enlargement.take({1280, 800}, {3840, 2400}), 3);
    EXPECT_EQ(enlargement.take({1280, 800}, {5120, 3200}), 4);
    EXPECT_EQ(enlargement.take({1280, 800}, {1280, 800}), 1);
}

TEST(PictureEnlargement, isWhatItWasWhileThePictureDoesNotFit) {
    PictureEnlargement enlargement;
    EXPECT_EQ(enlargement.take({}, {}), 1) << "nothing is known";
    EXPECT_EQ(enlargement.take({1280, 800}, {2560, 1440}), 1);
    EXPECT_EQ(enlargement.take({1280, 800}, {2560, 1600}), 2);
    EXPECT_EQ(enlargement.take({1280, 800}, {2560, 1440}), 2);
    EXPECT_EQ(enlargement.take({1280, 800}, {6400, 4000}), 2) << "nobody has such screens";
}

} // namespace zeph
