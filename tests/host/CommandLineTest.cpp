// SPDX-License-Identifier: MIT
#include "app/CommandLine.h"

#include <gtest/gtest.h>

#include <string_view>
#include <vector>

namespace zeph {

namespace {

Errand errandFor(std::vector<const char *> options) {
    options.insert(options.begin(), "tavi");
    return errandOf(static_cast<int>(options.size()), options.data());
}

} // namespace

TEST(CommandLineTest, withoutAnOptionTheWallpaperIsDrawn) {
    EXPECT_EQ(errandFor({}), Errand::wallpaper);
    EXPECT_EQ(errandOf(0, nullptr), Errand::wallpaper);
}

TEST(CommandLineTest, eachOptionHasItsErrand) {
    EXPECT_EQ(errandFor({"--restore-desktop"}), Errand::restoreDesktop);
    EXPECT_EQ(errandFor({"--help"}), Errand::help);
    EXPECT_EQ(errandFor({"-h"}), Errand::help);
    EXPECT_EQ(errandFor({"--version"}), Errand::version);
}

TEST(CommandLineTest, othersAreLeftToTheToolkit) {
    EXPECT_EQ(errandFor({"-platform", "xcb"}), Errand::wallpaper);
    EXPECT_EQ(errandFor({"-session", "--help"}), Errand::wallpaper);
    EXPECT_EQ(errandFor({""}), Errand::wallpaper);
}

TEST(CommandLineTest, theHelpNamesEachOption) {
    const std::string_view text(usage);
    for (const char *const option : {"--restore-desktop", "--help", "--version"}) {
        EXPECT_NE(text.find(option), std::string_view::npos) << option;
    }
}

} // namespace zeph
