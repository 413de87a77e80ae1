// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QFont>
#include <QStyleFactory>

#include <gmock/gmock.h>

int main(int argc, char **argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleMock(&argc, argv);
    QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QFont designed(QStringLiteral("Inter"));
    designed.setPointSizeF(10);
    QApplication::setFont(designed);
    return RUN_ALL_TESTS();
}
