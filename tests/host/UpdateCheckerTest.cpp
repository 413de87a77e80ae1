// SPDX-License-Identifier: MIT
#include "host/UpdateChecker.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

TEST(UpdateChecker, knowsTheVersionThatWasBuilt) {
    EXPECT_EQ(UpdateChecker::currentVersion(), QStringLiteral(ZEPH_PROJECT_VERSION));
}

TEST(UpdateChecker, callsABuildWithoutAVersionTheFirst) {
    EXPECT_EQ(UpdateChecker::currentVersion(QString()), u"1.0"_s);
    EXPECT_EQ(UpdateChecker::currentVersion(u"2.3.1"_s), u"2.3.1"_s);
}

} // namespace zeph
