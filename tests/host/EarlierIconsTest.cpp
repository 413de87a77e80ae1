// SPDX-License-Identifier: MIT
#include "host/EarlierIcons.h"

#include "support/FakeUserDefaults.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

class EarlierIconsTest : public testing::Test {
protected:
    std::optional<QString> stored() const { return defaults.get<QString>(earlierIconsKey); }

    FakeUserDefaults defaults;
    EarlierIcons earlier{defaults};
};

} // namespace

TEST_F(EarlierIconsTest, areKeptByDesktop) {
    EXPECT_TRUE(earlier.isEmpty());
    EXPECT_TRUE(earlier.keep(u"xfce"_s, u"1"_s));
    EXPECT_TRUE(earlier.keep(u"mate"_s, u"true"_s));
    EXPECT_EQ(stored(), uR"({"mate":"true","xfce":"1"})"_s);
    EXPECT_EQ(earlier.of(u"xfce"_s), u"1"_s);
    EXPECT_EQ(earlier.of(u"mate"_s), u"true"_s);
    EXPECT_EQ(earlier.of(u"plasma"_s), std::nullopt);
    EXPECT_EQ(earlier.of({}), std::nullopt);
}

TEST_F(EarlierIconsTest, areForgottenByDesktop) {
    earlier.keep(u"xfce"_s, u"1"_s);
    earlier.keep(u"mate"_s, u"true"_s);
    earlier.forget(u"xfce"_s);
    EXPECT_EQ(earlier.of(u"xfce"_s), std::nullopt);
    EXPECT_EQ(earlier.of(u"mate"_s), u"true"_s);
    earlier.forget(u"mate"_s);
    EXPECT_TRUE(earlier.isEmpty());
    EXPECT_EQ(stored(), std::nullopt);
}

TEST_F(EarlierIconsTest, ofAnEarlierVersionCountForEachDesktop) {
    const QString filters = uR"([{"id":3,"filterMode":2}])"_s;
    for (const QString &value : {u"true"_s, u"'true::false'"_s, QString(), filters}) {
        defaults.set(earlierIconsKey, value);
        EXPECT_FALSE(earlier.isEmpty());
        EXPECT_EQ(earlier.of(u"mate"_s), value);
        EXPECT_EQ(earlier.of({}), value);
    }
    EXPECT_TRUE(earlier.keep(u"plasma"_s, filters));
    EXPECT_EQ(earlier.of(u"mate"_s), std::nullopt);
    EXPECT_EQ(earlier.of(u"plasma"_s), filters);
    defaults.set(earlierIconsKey, u"true"_s);
    earlier.forget(u"mate"_s);
    EXPECT_EQ(stored(), std::nullopt);
}

TEST_F(EarlierIconsTest, stayAsTheyWereWhereTheyCannotBeSaved) {
    earlier.keep(u"xfce"_s, u"1"_s);
    for (const auto &before : {stored(), std::optional(u"true"_s), std::optional<QString>()}) {
        before ? defaults.set(earlierIconsKey, *before) : defaults.remove(earlierIconsKey);
        defaults.canSave = false;
        EXPECT_FALSE(earlier.keep(u"mate"_s, u"false"_s));
        EXPECT_EQ(stored(), before);
        defaults.canSave = true;
    }
}

} // namespace zeph
