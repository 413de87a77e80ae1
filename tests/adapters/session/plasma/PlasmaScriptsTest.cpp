// SPDX-License-Identifier: MIT
#include "adapters/session/plasma/PlasmaScripts.h"
#include "support/QtPrinters.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

using testing::HasSubstr;

using Desktops = std::vector<PlasmaDesktop>;

} // namespace

TEST(PlasmaScripts, readsWhatTheyPrint) {
    EXPECT_EQ(desktopsIn(uR"([{"id":1,"wallpaper":"org.kde.image"},{"id":31,"wallpaper":""}])"_s
                         u"\n"_s),
              (Desktops{{1, u"org.kde.image"_s}, {31, {}}}));
    EXPECT_EQ(desktopsIn(u"[]"_s), Desktops{});
}

TEST(PlasmaScripts, anErrorIsNoListOfDesktops) {
    for (const QString &printed :
         {u"Error: ReferenceError: desktops is not defined"_s, QString(), u"{}"_s, u"[1]"_s,
          uR"([{"id":"1","wallpaper":"a"}])"_s, uR"([{"id":1}])"_s}) {
        EXPECT_EQ(desktopsIn(printed), std::nullopt) << printed.toStdString();
    }
}

TEST(PlasmaScripts, onlyTheDesktopsOfTheseNumbersGetOurs) {
    const std::string script =
        putInScript({1, 31}, {u"file:///run/a"_s, u"file:///kept"_s, u"4-1"_s}).toStdString();
    EXPECT_THAT(script, HasSubstr("var numbers = [1,31];"));
    EXPECT_THAT(script, HasSubstr("one.writeConfig('Folder', \"file:///run/a\");"));
    EXPECT_THAT(script, HasSubstr("one.writeConfig('Kept', \"file:///kept\");"));
    EXPECT_THAT(script, HasSubstr("one.writeConfig('Start', \"4-1\");"));
    EXPECT_THAT(script, HasSubstr("if (isNew) one.wallpaperPlugin = \"com.tavi.Tavi\";"));
}

TEST(PlasmaScripts, whatIsInATextStaysInIt) {
    EXPECT_THAT(putInScript({}, {u"a\"); evil(\"\\"_s, {}, {}}).toStdString(),
                HasSubstr(R"(('Folder', "a\"); evil(\"\\"))"));
    EXPECT_THAT(putBackScript({{1, u"\"}; evil("_s}}).toStdString(),
                HasSubstr(R"(var earlier = {"1":"\"}; evil("};)"));
}

TEST(PlasmaScripts, eachDesktopGetsItsEarlierWallpaperBack) {
    const std::string script =
        putBackScript({{1, u"org.kde.color"_s}, {31, u"org.kde.slideshow"_s}}).toStdString();
    EXPECT_THAT(script, HasSubstr(R"({"1":"org.kde.color","31":"org.kde.slideshow"})"));
    EXPECT_THAT(script, HasSubstr("earlier[one.id] || \"org.kde.image\""));
}

TEST(PlasmaScripts, tellWhichDesktopsShowWhatWasReturned) {
    EXPECT_EQ(desktopsIn(uR"([{"id":1,"wallpaper":"a","isReturned":true},)"
                         uR"({"id":2,"wallpaper":"a","isReturned":false}])"_s),
              (Desktops{{1, u"a"_s, true}, {2, u"a"_s, false}}));
}

TEST(PlasmaScripts, wallpapersAreKeptAsText) {
    const PlasmaWallpapers wallpapers{{1, u"org.kde.color"_s}, {31, u"org.kde.image"_s}};
    EXPECT_EQ(keptWallpapers(wallpapers), uR"({"1":"org.kde.color","31":"org.kde.image"})"_s);
    EXPECT_EQ(wallpapersIn(keptWallpapers(wallpapers)), wallpapers);
}

TEST(PlasmaScripts, whatIsKeptAndCanNotBeUnderstoodIsLeftOut) {
    EXPECT_EQ(wallpapersIn(u"nonsense"_s), PlasmaWallpapers{});
    EXPECT_EQ(wallpapersIn(uR"({"one":"a","2":3,"4":"b"})"_s), (PlasmaWallpapers{{4, u"b"_s}}));
}

} // namespace zeph
