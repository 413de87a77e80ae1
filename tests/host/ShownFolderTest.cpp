// SPDX-License-Identifier: MIT
#include "host/ShownFolder.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

TEST(ShownFolderTest, aFolderBelowTheHomeBeginsWithATilde) {
    EXPECT_EQ(shownFolder("/home/ana/Schreibtisch", "/home/ana"), u"~/Schreibtisch"_s);
    EXPECT_EQ(shownFolder("/home/ana/a/b", "/home/ana"), u"~/a/b"_s);
}

TEST(ShownFolderTest, anyOtherFolderIsShownWhole) {
    EXPECT_EQ(shownFolder("/srv/desk", "/home/ana"), u"/srv/desk"_s);
    EXPECT_EQ(shownFolder("/home/anabel/Desktop", "/home/ana"), u"/home/anabel/Desktop"_s);
    EXPECT_EQ(shownFolder("/home/ana", "/home/ana"), u"/home/ana"_s);
}

TEST(ShownFolderTest, aHomeThatIsUnknownOrTheRootShortensNothing) {
    EXPECT_EQ(shownFolder("/Desktop", ""), u"/Desktop"_s);
    EXPECT_EQ(shownFolder("/Desktop", "/"), u"/Desktop"_s);
}

} // namespace zeph
