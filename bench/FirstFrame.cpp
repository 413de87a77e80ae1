// SPDX-License-Identifier: MIT
#include <sys/prctl.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <thread>

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr auto patience = 20s;
constexpr auto betweenLooks = 500us;
constexpr std::uint32_t colorBits = 0xffffff;

struct Free {
    void operator()(void *memory) const { std::free(memory); }
};

/// Whether a pixel in the middle of the screen is not black.
bool isSomethingShown(xcb_connection_t *display, const xcb_screen_t &screen) {
    const auto cookie =
        xcb_get_image(display, XCB_IMAGE_FORMAT_Z_PIXMAP, screen.root,
                      static_cast<std::int16_t>(screen.width_in_pixels / 2),
                      static_cast<std::int16_t>(screen.height_in_pixels / 2), 1, 1, UINT32_MAX);
    const std::unique_ptr<xcb_get_image_reply_t, Free> reply(
        xcb_get_image_reply(display, cookie, nullptr));
    if (!reply || xcb_get_image_data_length(reply.get()) < 4) {
        return false;
    }
    const std::uint8_t *bytes = xcb_get_image_data(reply.get());
    const std::uint32_t pixel = bytes[0] | static_cast<std::uint32_t>(bytes[1]) << 8 |
                                static_cast<std::uint32_t>(bytes[2]) << 16;
    return (pixel & colorBits) != 0;
}

double processorMilliseconds(pid_t process) {
    clockid_t clock = 0;
    timespec spent{};
    if (clock_getcpuclockid(process, &clock) != 0 || clock_gettime(clock, &spent) != 0) {
        return -1;
    }
    return static_cast<double>(spent.tv_sec) * 1e3 + static_cast<double>(spent.tv_nsec) / 1e6;
}

pid_t start(char **command) {
    const pid_t child = fork();
    if (child == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        execv(command[0], command);
        std::perror(command[0]);
        _exit(127);
    }
    return child;
}

} // namespace

/// Starts the program given, on a screen that is black, prints the milliseconds from its start
/// until the screen shows something, and the processor time it took till then, and ends it.
int main(int argumentCount, char **arguments) {
    xcb_connection_t *display = xcb_connect(nullptr, nullptr);
    if (argumentCount < 2 || xcb_connection_has_error(display) != 0) {
        std::fputs("usage, on an X display: zeph_first_frame PROGRAM [ARGUMENT]...\n", stderr);
        return EXIT_FAILURE;
    }
    const xcb_screen_t &screen = *xcb_setup_roots_iterator(xcb_get_setup(display)).data;
    if (isSomethingShown(display, screen)) {
        std::fputs("zeph_first_frame: the screen is not black\n", stderr);
        return EXIT_FAILURE;
    }
    const Clock::time_point begin = Clock::now();
    const pid_t child = start(arguments + 1);
    bool isShown = false;
    while (!isShown && Clock::now() - begin < patience) {
        std::this_thread::sleep_for(betweenLooks);
        isShown = isSomethingShown(display, screen);
    }
    const std::chrono::duration<double, std::milli> passed = Clock::now() - begin;
    const double spent = processorMilliseconds(child);
    kill(child, SIGTERM);
    waitpid(child, nullptr, 0);
    while (isSomethingShown(display, screen)) {
        std::this_thread::sleep_for(betweenLooks); // till the window is gone, for the next run
    }
    xcb_disconnect(display);
    if (!isShown) {
        std::fputs("zeph_first_frame: nothing was shown\n", stderr);
        return EXIT_FAILURE;
    }
    std::printf("%.1f %.1f\n", passed.count(), spent);
    return EXIT_SUCCESS;
}
