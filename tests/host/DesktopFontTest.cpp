// SPDX-License-Identifier: MIT
#include "app/DesktopFont.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

TEST(DesktopFont, hasTheDesignedSizeWhereNoDesktopTellsOne) {
    EXPECT_EQ(desktopFont(QFont(u"Sans Serif"_s, 9)), QFont(u"Sans Serif"_s, 10));
}

TEST(DesktopFont, isThatOfTheDesktop) {
    for (const QFont &told : {QFont(u"Noto Sans"_s, 9), QFont(u"Sans Serif"_s, 8),
                              QFont(u"Sans Serif"_s, 14), QFont(u"Cantarell"_s, 11)}) {
        EXPECT_EQ(desktopFont(told), told);
    }
}

} // namespace zeph
