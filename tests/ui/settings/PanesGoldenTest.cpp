// SPDX-License-Identifier: MIT
#include "golden/GoldenImage.h"

namespace zeph::ui {
TEST(PanesGoldenTest, none) {}
} // namespace zeph::ui
