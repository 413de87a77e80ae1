// SPDX-License-Identifier: MIT
#include "adapters/locale/UserLocale.h"
#include "support/Environment.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

struct Variables {
    ScopedVariable all{"LC_ALL", std::nullopt};
    ScopedVariable time{"LC_TIME", std::nullopt};
    ScopedVariable lang{"LANG", std::nullopt};
};

} // namespace

TEST(UserLocale, asksTheVariablesInTheirOrder) {
    Variables variables;
    variables.lang.set("fr_FR.UTF-8");
    EXPECT_EQ(userLocale("LC_TIME"), "fr_FR");
    variables.time.set("de_DE.UTF-8");
    EXPECT_EQ(userLocale("LC_TIME"), "de_DE");
    EXPECT_EQ(userLocale("LC_NUMERIC"), "fr_FR");
    variables.all.set("sv_SE");
    EXPECT_EQ(userLocale("LC_TIME"), "sv_SE");
}

TEST(UserLocale, takesAnEmptyVariableForUnset) {
    Variables variables;
    variables.all.set("");
    variables.time.set("");
    variables.lang.set("it_IT");
    EXPECT_EQ(userLocale("LC_TIME"), "it_IT");
}

TEST(UserLocale, keepsOnlyTheScriptOfAModifier) {
    Variables variables;
    variables.all.set("sr_RS.UTF-8@latin");
    EXPECT_EQ(userLocale("LC_TIME"), "sr_Latn_RS");
    variables.all.set("uz_UZ@cyrillic");
    EXPECT_EQ(userLocale("LC_TIME"), "uz_Cyrl_UZ");
    variables.all.set("de_DE@euro");
    EXPECT_EQ(userLocale("LC_TIME"), "de_DE");
}

TEST(UserLocale, readsNoChoiceAsWorldEnglish) {
    Variables variables;
    EXPECT_EQ(userLocale("LC_TIME"), "en_001");
    for (const char *value : {"C", "POSIX", "C.UTF-8"}) {
        variables.all.set(value);
        EXPECT_EQ(userLocale("LC_TIME"), "en_001");
    }
}

TEST(UserLocale, prefersALocaleGivenByName) {
    Variables variables;
    variables.all.set("sv_SE");
    EXPECT_EQ(localeOrUsers(u"th_TH"_s, "LC_TIME"), "th_TH");
    EXPECT_EQ(localeOrUsers({}, "LC_TIME"), "sv_SE");
}

} // namespace zeph
