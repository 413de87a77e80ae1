// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QFont>
#include <QPalette>
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
    // A highlight that is seen too little, so that the focus has a colour of ours.
    QPalette colors;
    colors.setColor(QPalette::Highlight, Qt::black);
    QApplication::setPalette(colors);
    QApplication::setCursorFlashTime(0);
    return RUN_ALL_TESTS();
}
