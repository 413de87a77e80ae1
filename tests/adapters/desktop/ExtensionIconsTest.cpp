// SPDX-License-Identifier: MIT
#include "adapters/desktop/ExtensionIcons.h"

#include "adapters/desktop/ProgramFolder.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const QString ding = u"ding@rastersoft.com"_s;
const QString newerDing = u"gtk4-ding@smedius.gitlab.com"_s;

/// GNOME with its tool; each extension that is on is a file.
class ExtensionIconsTest : public testing::Test {
protected:
    ExtensionIconsTest() {
        folder.install(u"gnome-extensions"_s,
                       "case $1 in\n"
                       "list) cd \"$FOLDER/on\" || exit 2; for one in *; do echo \"$one\"; done;;\n"
                       "enable) : >\"$FOLDER/on/$2\";;\n"
                       "disable) echo \"$2\" >>\"$FOLDER/calls\"; /bin/rm -f \"$FOLDER/on/$2\";;\n"
                       "esac");
        switchOn(u"clock@example.org"_s);
    }

    void install(const QString &extension) {
        folder.write(u"data/gnome-shell/extensions/"_s + extension + u"/metadata.json"_s, "{}");
    }
    void switchOn(const QString &extension) { folder.write(u"on/"_s + extension, {}); }

    ExtensionIcons icons() const {
        return ExtensionIcons({folder.path(u"nowhere"_s), folder.path(u"data"_s)});
    }

    ProgramFolder folder;
};

} // namespace

TEST_F(ExtensionIconsTest, areNoneWithoutAnExtensionThatDrawsThem) {
    install(u"clock@example.org"_s);
    ExtensionIcons none = icons();
    EXPECT_FALSE(none.canHideIcons());
    EXPECT_EQ(none.iconSetting(), std::nullopt);
    EXPECT_EQ(none.hideIcons(), ShellOutcome::unavailable);
    EXPECT_EQ(none.showIcons(ding), ShellOutcome::unavailable);
    EXPECT_EQ(none.relaunch(), ShellOutcome::unavailable);
}

TEST_F(ExtensionIconsTest, areNoneWithoutTheTool) {
    install(ding);
    EXPECT_TRUE(icons().canHideIcons());
    QFile::remove(folder.path(u"bin/gnome-extensions"_s));
    EXPECT_FALSE(icons().canHideIcons());
}

TEST_F(ExtensionIconsTest, goAndComeWithTheExtensionThatWasOn) {
    install(ding);
    install(newerDing);
    switchOn(newerDing);
    ExtensionIcons shown = icons();
    const auto earlier = shown.iconSetting();
    EXPECT_EQ(earlier, (IconSetting{true, newerDing}));
    EXPECT_EQ(shown.hideIcons(), ShellOutcome::done);
    EXPECT_EQ(shown.relaunch(), ShellOutcome::done);
    EXPECT_EQ(folder.read(u"calls"_s), newerDing.toUtf8() + '\n') << "and no other";
    EXPECT_EQ(shown.iconSetting(), (IconSetting{false, {}, IconDrawer::off}));
    EXPECT_EQ(shown.showIcons(earlier->value), ShellOutcome::done);
    EXPECT_EQ(shown.iconSetting(), earlier);
    EXPECT_TRUE(QFile::exists(folder.path(u"on/clock@example.org"_s)));
}

TEST_F(ExtensionIconsTest, comeByTheMostCommonExtensionWhereNoneIsKnown) {
    install(ding);
    install(newerDing);
    ExtensionIcons hidden = icons();
    for (const auto &earlier : {QString(), u"evil@example.org --quiet"_s}) {
        EXPECT_EQ(hidden.showIcons(earlier), ShellOutcome::done);
        EXPECT_EQ(hidden.iconSetting(), (IconSetting{true, ding}));
        EXPECT_FALSE(QFile::exists(folder.path(u"on/evil@example.org"_s)));
        hidden.hideIcons();
    }
}

TEST_F(ExtensionIconsTest, allComeBackWhereOneIsOnAlready) {
    install(ding);
    install(newerDing);
    switchOn(ding);
    ExtensionIcons half = icons();
    EXPECT_EQ(half.showIcons(ding + u' ' + newerDing), ShellOutcome::done);
    EXPECT_EQ(half.iconSetting(), (IconSetting{true, ding + u' ' + newerDing}));
}

TEST_F(ExtensionIconsTest, areLeftToAnotherExtensionThatIsOnSince) {
    install(ding);
    install(newerDing);
    switchOn(newerDing);
    ExtensionIcons shown = icons();
    EXPECT_EQ(shown.showIcons(ding), ShellOutcome::done);
    EXPECT_EQ(shown.iconSetting(), (IconSetting{true, newerDing}));
}

TEST_F(ExtensionIconsTest, cannotBeReadWithoutTheShell) {
    install(ding);
    folder.install(u"gnome-extensions"_s, "exit 2");
    ExtensionIcons unknown = icons();
    EXPECT_EQ(unknown.iconSetting(), std::nullopt);
    EXPECT_EQ(unknown.hideIcons(), ShellOutcome::refused);
    EXPECT_EQ(unknown.showIcons(ding), ShellOutcome::refused);
}

} // namespace zeph
