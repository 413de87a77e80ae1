// SPDX-License-Identifier: MIT
#include "adapters/updates/PackageProblem.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

TEST(PackageProblem, isOneSentenceForEveryCode) {
    for (uint code = 0; code < 70; ++code) {
        for (const QString &details : {u""_s, u"it\nfailed.\n"_s, u"a."_s}) {
            const QString problem = packageProblem(code, details);
            EXPECT_TRUE(problem.endsWith(u'.')) << problem.toStdString();
            EXPECT_FALSE(problem.endsWith(u".."_s)) << problem.toStdString();
            EXPECT_FALSE(problem.contains(u'\n')) << problem.toStdString();
            EXPECT_TRUE(problem.front().isUpper()) << problem.toStdString();
        }
    }
}

TEST(PackageProblem, namesTheCausesThatPeopleCanDoSomethingAbout) {
    EXPECT_EQ(packageProblem(2, {}), u"There is no network to get packages by."_s);
    EXPECT_EQ(packageProblem(26, {}), u"Other software is being installed right now."_s);
    EXPECT_EQ(packageProblem(46, {}), u"There is not enough room on the disk."_s);
}

TEST(PackageProblem, tellsTheServicesOwnFirstLineOfAnyOther) {
    EXPECT_EQ(packageProblem(4, u"  could not open\tthe cache.\nE: more"_s),
              u"Your system's package service failed: could not open the cache."_s);
    EXPECT_EQ(packageProblem(4, u" \n"_s), u"Your system's package service failed."_s);
}

TEST(PackageProblem, staysShortWhateverTheServiceSays) {
    EXPECT_LT(packageProblem(0, QString(5000, u'x')).size(), 220);
}

} // namespace zeph
