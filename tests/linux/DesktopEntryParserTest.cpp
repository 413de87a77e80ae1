// SPDX-License-Identifier: MIT
#include "platform/linux/DesktopEntryParser.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

std::optional<DesktopEntry> parse(const QByteArray &keys, const QString &locale = u"C"_s) {
    return parseDesktopEntry("[Desktop Entry]\nType=Application\n" + keys,
                             desktopEntryLocales(locale));
}

} // namespace

TEST(DesktopEntryParser, readsAnApplication) {
    const auto entry = parse("Name = Text Editor\nStartupWMClass=Edit\nExec=/usr/bin/edit %U\n");
    ASSERT_TRUE(entry);
    EXPECT_EQ(*entry, (DesktopEntry{u"Text Editor"_s, u"Edit"_s, u"edit"_s, false, true}));
}

TEST(DesktopEntryParser, takesTheBestTranslation) {
    const QByteArray names = "Name[de]=Uhr\nName=Clock\nName[de_AT]=Uhrl\nName[fr]=Horloge\n";
    EXPECT_EQ(parse(names, u"de_AT.UTF-8"_s)->name, u"Uhrl"_s);
    EXPECT_EQ(parse(names, u"de_DE.UTF-8@euro"_s)->name, u"Uhr"_s);
    EXPECT_EQ(parse(names, u"it_IT"_s)->name, u"Clock"_s);
    EXPECT_EQ(parse(names, u"C"_s)->name, u"Clock"_s);
}

TEST(DesktopEntryParser, ordersTheLocalesFromExactToGeneral) {
    EXPECT_EQ(desktopEntryLocales(u"sr_RS.UTF-8@latin"_s),
              (QStringList{u"sr_RS@latin"_s, u"sr_RS"_s, u"sr@latin"_s, u"sr"_s}));
    EXPECT_EQ(desktopEntryLocales(u"de"_s), QStringList{u"de"_s});
    EXPECT_TRUE(desktopEntryLocales(u"POSIX"_s).isEmpty());
    EXPECT_TRUE(desktopEntryLocales(QString()).isEmpty());
}

TEST(DesktopEntryParser, leavesOutTheActionsAndWhatComesBeforeTheEntry) {
    const auto entry = parseDesktopEntry("Name=Before\n[Other]\nName=Other\n[Desktop Entry]\n"
                                         "Type=Application\nName=Right\n"
                                         "[Desktop Action New]\nName=New Window\nExec=other\n",
                                         {});
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->name, u"Right"_s);
    EXPECT_EQ(entry->program, QString());
}

TEST(DesktopEntryParser, knowsTheProgramBehindEnvAndQuotes) {
    EXPECT_EQ(parse("Name=x\nExec=env A=b /opt/x/run --flag\n")->program, u"run"_s);
    EXPECT_EQ(parse("Name=x\nExec=\"/opt/with space/run it\" %f\n")->program, u"run it"_s);
    EXPECT_EQ(parse("Name=x\nExec=env\n")->program, QString());
}

TEST(DesktopEntryParser, refusesWhatIsNoApplication) {
    EXPECT_FALSE(parseDesktopEntry("[Desktop Entry]\nType=Link\nName=x\n", {}));
    EXPECT_FALSE(parseDesktopEntry("[Desktop Entry]\nType=Application\n", {}));
    EXPECT_FALSE(parseDesktopEntry("Type=Application\nName=x\n", {}));
    EXPECT_FALSE(parseDesktopEntry("", {}));
}

TEST(DesktopEntryParser, keepsDeletedAndUnlistedEntriesApart) {
    EXPECT_TRUE(parseDesktopEntry("[Desktop Entry]\nHidden=true\n", {})->isHidden);
    EXPECT_FALSE(parse("Name=x\nNoDisplay=true\n")->isListed);
}

TEST(DesktopEntryParser, survivesMalformedBytes) {
    EXPECT_FALSE(parse("=\n==\n[\n]\nName[=x\nName]=x\nNameless=x\n"));
    EXPECT_FALSE(parse("Name[]=x\n"));
    EXPECT_TRUE(parse(QByteArray("Name=a\0b\xff\xfe\\", 11)));
    EXPECT_EQ(parse("Name=a\\sb\\tc\\\\d\\\n")->name, u"a b c\\d\\"_s);
    EXPECT_EQ(parse("\r\nName=x\r\n")->name, u"x"_s);
}

TEST(DesktopEntryParser, cutsAnEndlessName) {
    EXPECT_EQ(parse("Name=" + QByteArray(100000, 'x') + "\n")->name.size(), 256);
}

} // namespace zeph
