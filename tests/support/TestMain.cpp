// SPDX-License-Identifier: MIT
#include <QGuiApplication>

#include <gmock/gmock.h>

int main(int argc, char **argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleMock(&argc, argv);
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
