// SPDX-License-Identifier: MIT
#include "adapters/apps/DesktopEntry.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

std::optional<DesktopEntry> parse(const QByteArray &keys, const QString &locale = u"C"_s) {
    return parseDesktopEntry("[Desktop Entry]\nType=Application\n" + keys, locale);
}

} // namespace

TEST(DesktopEntry, readsAnApplication) {
    const auto entry = parse("Name = Text Editor\nStartupWMClass=Edit\nExec=/usr/bin/edit %U\n");
    ASSERT_TRUE(entry);
    EXPECT_EQ(*entry, (DesktopEntry{u"Text Editor"_s, u"Edit"_s, u"edit"_s, false, true}));
}

TEST(DesktopEntry, takesTheBestTranslation) {
    const QByteArray names = "Name[de]=Uhr\nName=Clock\nName[de_AT]=Uhrl\nName[fr]=Horloge\n";
    EXPECT_EQ(parse(names, u"de_AT.UTF-8"_s)->name, u"Uhrl"_s);
    EXPECT_EQ(parse(names, u"de_DE.UTF-8@euro"_s)->name, u"Uhr"_s);
    EXPECT_EQ(parse(names, u"it_IT"_s)->name, u"Clock"_s);
    EXPECT_EQ(parse(names, u"C"_s)->name, u"Clock"_s);
}

TEST(DesktopEntry, leavesOutOtherGroups) {
    const auto entry = parseDesktopEntry("# Before\n[Other]\nName=Other\n[Desktop Entry]\n"
                                         "Type=Application\nName=Right\n"
                                         "[Desktop Action New]\nName=New Window\nExec=other\n",
                                         u"C"_s);
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->name, u"Right"_s);
    EXPECT_EQ(entry->program, QString());
}

TEST(DesktopEntry, knowsTheProgramBehindEnvAndQuotes) {
    EXPECT_EQ(parse("Name=x\nExec=env A=b /opt/x/run --flag\n")->program, u"run"_s);
    EXPECT_EQ(parse("Name=x\nExec=\"/opt/with space/run it\" %f\n")->program, u"run it"_s);
    EXPECT_EQ(parse("Name=x\nExec=env\n")->program, QString());
}

TEST(DesktopEntry, refusesWhatIsNoApplication) {
    EXPECT_FALSE(parseDesktopEntry("[Desktop Entry]\nType=Link\nName=x\n", u"C"_s));
    EXPECT_FALSE(parseDesktopEntry("[Desktop Entry]\nType=Application\n", u"C"_s));
    EXPECT_FALSE(parseDesktopEntry("Type=Application\nName=x\n", u"C"_s));
    EXPECT_FALSE(parseDesktopEntry("", u"C"_s));
}

TEST(DesktopEntry, keepsDeletedAndUnlistedEntriesApart) {
    EXPECT_TRUE(parseDesktopEntry("[Desktop Entry]\nHidden=true\n", u"C"_s)->isHidden);
    EXPECT_FALSE(parse("Name=x\nNoDisplay=true\n")->isListed);
}

TEST(DesktopEntry, survivesMalformedBytes) {
    EXPECT_FALSE(parse("=\n==\n[\n]\nName[=x\nName]=x\nNameless=x\n"));
    EXPECT_FALSE(parse("Name[]=x\n"));
    EXPECT_FALSE(parse("Name=\xff\xfe\n"));
    EXPECT_EQ(parse("\r\nName=x\r\n")->name, u"x"_s);
    EXPECT_EQ(parse("Name=a\\sb\\tc\n")->name, u"a b c"_s);
    EXPECT_EQ(parse("Name=x\nExec=\"open quote\n")->program, QString());
}

TEST(DesktopEntry, cutsAnEndlessName) {
    EXPECT_EQ(parse("Name=" + QByteArray(100000, 'x') + "\n")->name.size(), 256);
}

} // namespace zeph
