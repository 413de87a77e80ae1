// SPDX-License-Identifier: MIT
#include "adapters/session/x11/SilentPicture.h"

#include <gtest/gtest.h>

namespace zeph {

namespace {

constexpr QSize kOneDisplay(1280, 800);
constexpr QSize kTwoDisplays(2560, 800);

PixmapForm whole(const QSize &size) {
    return {.pixmap = 1, .size = size, .depth = 24};
}
PixmapForm pixmap(xcb_pixmap_t number, const QSize &size, std::uint8_t depth = 24) {
    return {.pixmap = number, .size = size, .depth = depth};
}

} // namespace

TEST(SilentPicture, isNoneWhileTheAnnouncedOneFits) {
    SilentPicture silent;
    EXPECT_FALSE(
        silent.take(pixmap(10, kOneDisplay), {pixmap(10, kOneDisplay)}, whole(kOneDisplay)));
    EXPECT_FALSE(silent.take(pixmap(10, kOneDisplay), {}, whole(kOneDisplay)));
}

TEST(SilentPicture, isTheOneInTheSizeOfADesktopThatShrank) {
    SilentPicture silent;
    const auto announced = pixmap(10, kTwoDisplays);
    EXPECT_FALSE(silent.take(announced, {announced}, whole(kTwoDisplays)));
    EXPECT_FALSE(silent.take(announced, {announced}, whole(kOneDisplay))) << "not made yet";
    const auto shown = pixmap(20, kOneDisplay);
    EXPECT_EQ(silent.take(announced, {announced, shown}, whole(kOneDisplay)), shown);
}

TEST(SilentPicture, isKnownAtTheFirstLookWhereTheAnnouncedOneDoesNotFit) {
    SilentPicture silent;
    const auto shown = pixmap(20, kOneDisplay);
    EXPECT_EQ(silent.take(pixmap(10, kTwoDisplays), {pixmap(10, kTwoDisplays), shown},
                          whole(kOneDisplay)),
              shown);
}

TEST(SilentPicture, isOneThatCameAfterAnAnnouncedOneThatFitsAgain) {
    SilentPicture silent;
    const auto announced = pixmap(10, kTwoDisplays);
    EXPECT_FALSE(silent.take(announced, {announced}, whole(kTwoDisplays)));
    const auto shown = pixmap(20, kTwoDisplays);
    EXPECT_EQ(silent.take(announced, {announced, shown}, whole(kTwoDisplays)), shown);
}

TEST(SilentPicture, isNoneThatSomebodyLeftBeforeTheAnnouncement) {
    SilentPicture silent;
    const auto left = pixmap(20, kOneDisplay);
    for (int i = 0; i < 2; ++i) {
        EXPECT_FALSE(silent.take(pixmap(10, kOneDisplay), {left, pixmap(10, kOneDisplay)},
                                 whole(kOneDisplay)));
    }
    const auto shown = pixmap(30, kOneDisplay);
    EXPECT_EQ(silent.take(pixmap(10, kOneDisplay), {left, shown}, whole(kOneDisplay)), shown);
}

TEST(SilentPicture, mayHaveTheNumberOfOneThatIsGone) {
    SilentPicture silent;
    const auto twice = pixmap(20, kOneDisplay);
    EXPECT_FALSE(silent.take(pixmap(10, kOneDisplay), {twice}, whole(kOneDisplay)));
    EXPECT_FALSE(silent.take(pixmap(10, kOneDisplay), {}, whole(kOneDisplay)));
    EXPECT_EQ(silent.take(pixmap(10, kOneDisplay), {twice}, whole(kOneDisplay)), twice);
}

TEST(SilentPicture, isNoneOnceAnotherIsAnnounced) {
    SilentPicture silent;
    const auto first = pixmap(10, kTwoDisplays);
    const auto second = pixmap(20, kOneDisplay);
    EXPECT_EQ(silent.take(first, {first, second}, whole(kOneDisplay)), second);
    EXPECT_FALSE(silent.take(second, {second}, whole(kOneDisplay)));
    const auto third = pixmap(30, kTwoDisplays);
    EXPECT_FALSE(silent.take(third, {second, third}, whole(kTwoDisplays)));
}

TEST(SilentPicture, isNoneOfAnotherForm) {
    SilentPicture silent;
    const auto announced = pixmap(10, kTwoDisplays);
    EXPECT_FALSE(silent.take(announced, {pixmap(20, kTwoDisplays), pixmap(30, kOneDisplay, 32)},
                             whole(kOneDisplay)));
}

TEST(SilentPicture, isNoneWhereSeveralCouldBeIt) {
    SilentPicture silent;
    EXPECT_FALSE(silent.take(pixmap(10, kTwoDisplays),
                             {pixmap(20, kOneDisplay), pixmap(30, kOneDisplay)},
                             whole(kOneDisplay)));
}

} // namespace zeph
