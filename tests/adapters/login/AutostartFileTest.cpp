// SPDX-License-Identifier: MIT
#include "adapters/login/AutostartFile.h"

#include <gtest/gtest.h>

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
    for (const QByteArray bytes : {"", "Type=Application", "[Desktop Entry]\nType=Link\nURL=a\n",
                                   "[Other]\nType=Application\n", "\0\xff\xfe"}) {
        EXPECT_FALSE(readAutostart(bytes)) << bytes.constData();
        EXPECT_FALSE(switchAutostart(bytes, true)) << bytes.constData();
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
