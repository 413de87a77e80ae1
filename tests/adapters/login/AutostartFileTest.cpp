// SPDX-License-Identifier: MIT
#include "adapters/login/AutostartFile.h"

#include <gtest/gtest.h>

#include <string>

using namespace Qt::StringLiterals;

namespace zeph {

TEST(AutostartFile, quotesWhatAnExecLineGivesAMeaning) {
    EXPECT_EQ(execLine(u"/usr/bin/tavi"_s), u"\"/usr/bin/tavi\""_s);
    EXPECT_EQ(execLine(u"/home/A B/100%/tavi"_s), u"\"/home/A B/100%%/tavi\""_s);
    EXPECT_EQ(execLine(u"/a\"b`c$d\\e"_s), u"\"/a\\\"b\\`c\\$d\\\\e\""_s);
}

TEST(AutostartFile, escapesTheLineAsAnyTextOfAnEntry) {
    const QByteArray entry = writeAutostart(u"/a\\b"_s, true);
    EXPECT_TRUE(entry.contains("\nExec=\"/a\\\\\\\\b\"\n")) << entry.constData();
    EXPECT_TRUE(entry.contains("\nTryExec=/a\\\\b\n")) << entry.constData();
}

TEST(AutostartFile, readsWhatItWrites) {
    for (const bool isEnabled : {true, false}) {
        EXPECT_EQ(readAutostart(writeAutostart(u"/opt/My Tavi/tavi"_s, isEnabled)),
                  (AutostartFacts{isEnabled, true, u"/opt/My Tavi/tavi"_s}));
    }
}

TEST(AutostartFile, isOffWhenHiddenOrSwitchedOff) {
    const QByteArray entry = "[Desktop Entry]\nType=Application\nName=Tavi\nExec=tavi\n";
    EXPECT_EQ(readAutostart(entry), (AutostartFacts{true, false, {}}));
    EXPECT_FALSE(readAutostart(entry + "Hidden=true\n")->isEnabled);
    EXPECT_TRUE(readAutostart(entry + "Hidden=false\n")->isEnabled);
    EXPECT_FALSE(readAutostart(entry + "X-GNOME-Autostart-enabled=false\n")->isEnabled);
    EXPECT_TRUE(readAutostart(entry + "X-GNOME-Autostart-enabled=true\n")->isEnabled);
    EXPECT_TRUE(readAutostart(entry + "X-GNOME-Autostart-enabled=maybe\n")->isEnabled);
}

TEST(AutostartFile, mayHideAndSayNothingElse) {
    const auto facts = readAutostart("[Desktop Entry]\nHidden=true\n");
    ASSERT_TRUE(facts);
    EXPECT_FALSE(facts->isEnabled);
}

TEST(AutostartFile, isNoEntryOfAnythingElse) {
    using namespace std::string_literals;
    for (const std::string &text :
         {""s, "Type=Application"s, "[Desktop Entry]\nType=Link\nURL=a\n"s,
          "[Other]\nType=Application\n"s, "[Desktop Entry]\xa1\nType=Application\n"s,
          "[Desktop Entry]\nType=Application\nName=\xff\n"s,
          "[Desktop Entry]\0\nType=Application\n"s}) {
        const auto bytes = QByteArray::fromStdString(text);
        EXPECT_FALSE(readAutostart(bytes)) << text;
        EXPECT_FALSE(switchAutostart(bytes, true)) << text;
    }
}

TEST(AutostartFile, isSwitchedWithAllElseAsItIs) {
    const QByteArray entry =
        "# mine\n[Desktop Entry]\nType=Application\nName=Tavi\nName[de]=Tavi!\n"
        "Exec=sh -c \"sleep 9 && tavi\"\n\n[Desktop Action settings]\nName=S\n";
    const QByteArray off = switchAutostart(entry, false).value_or(QByteArray());
    EXPECT_FALSE(readAutostart(off)->isEnabled);
    for (const char *kept : {"# mine\n", "Name[de]=Tavi!\n", "Exec=sh -c \"sleep 9 && tavi\"\n",
                             "[Desktop Action settings]\nName=S\n"}) {
        EXPECT_TRUE(off.contains(kept)) << off.constData();
    }
    EXPECT_EQ(switchAutostart(off, true), entry);
    EXPECT_EQ(switchAutostart(off, false), off) << "nothing piles up";
}

TEST(AutostartFile, isSwitchedOnPastBothSwitches) {
    const auto on = switchAutostart("[Desktop Entry]\nType=Application\nHidden=true\n"
                                    "X-GNOME-Autostart-enabled=false\n",
                                    true);
    EXPECT_EQ(on, "[Desktop Entry]\nType=Application\nX-GNOME-Autostart-enabled=true\n");
}

TEST(AutostartFile, isSwitchedInItsOwnGroupAlone) {
    const QByteArray action = "[Desktop Action a]\nHidden=true\nX-GNOME-Autostart-enabled=false\n";
    const auto on =
        switchAutostart("[Desktop Entry]\r\nType=Application\nHidden = true\r\n" + action, true);
    EXPECT_EQ(on, "[Desktop Entry]\r\nType=Application\n" + action);
}

} // namespace zeph
