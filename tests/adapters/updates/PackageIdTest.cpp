// SPDX-License-Identifier: MIT
#include "adapters/updates/PackageId.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

TEST(PackageIdTest, isWhatTheServiceWrites) {
    EXPECT_EQ(parsePackageId(u"tavi;1:0.2.0-3;amd64;installed:stable"_s),
              (PackageId{u"tavi"_s, u"1:0.2.0-3"_s, u"amd64"_s}));
    EXPECT_EQ(parsePackageId(u"tavi;0.2;;"_s), (PackageId{u"tavi"_s, u"0.2"_s, {}}));
}

TEST(PackageIdTest, isAbsentForAnythingElse) {
    for (const QString &text : {u""_s, u"tavi"_s, u"tavi;1;amd64"_s, u"tavi;1;amd64;a;b"_s,
                                u";1;amd64;local"_s, u"tavi;;amd64;local"_s}) {
        EXPECT_FALSE(parsePackageId(text)) << text.toStdString();
    }
}

TEST(PackageIdTest, hasTheMakersVersionWithinThatOfThePackage) {
    EXPECT_EQ(makersVersion(u"0.2.0"_s), u"0.2.0"_s);
    EXPECT_EQ(makersVersion(u"1:0.2.0-3+deb12u1"_s), u"0.2.0"_s);
    EXPECT_EQ(makersVersion(u"0.2.0-rc1-1"_s), u"0.2.0-rc1"_s);
    EXPECT_EQ(makersVersion(u"-1"_s), u"-1"_s) << "something is left to be told";
}

TEST(PackageIdTest, holdsAVersionWhateverPackagersAdd) {
    EXPECT_TRUE(holdsVersion(u"0.2.0"_s, u"0.2.0"_s));
    EXPECT_TRUE(holdsVersion(u"1:0.2.0-3+deb12u1"_s, u"0.2.0"_s));
    EXPECT_TRUE(holdsVersion(u"0.2.0+dfsg-1"_s, u"0.2.0"_s));
    EXPECT_FALSE(holdsVersion(u"0.2.01-1"_s, u"0.2.0"_s));
    EXPECT_FALSE(holdsVersion(u"0.2.0.1-1"_s, u"0.2.0"_s));
    EXPECT_FALSE(holdsVersion(u"0.3.0-1"_s, u"0.2.0"_s));
}

TEST(PackageIdTest, isCalledByThePackagersVersionWhereTheMakersIsTheSame) {
    EXPECT_EQ(newerVersionName(u"0.2.0-1"_s, u"0.1.0-1"_s), u"0.2.0"_s);
    EXPECT_EQ(newerVersionName(u"0.1.0-2"_s, u"0.1.0-1"_s), u"0.1.0-2"_s);
}

} // namespace zeph
