// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QFile>
#include <QFont>
#include <QStyleFactory>
#include <QTemporaryDir>

#include <gmock/gmock.h>

/// The main function of tests on a large screen with two device pixels in a logical one.
int main(int argc, char **argv) {
    testing::InitGoogleMock(&argc, argv);
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("screens.json"));
    QFile file(path);
    if (!file.open(QFile::WriteOnly)) {
        return 1;
    }
    file.write(R"({"screens":[{"name":"dense","x":0,"y":0,"width":2560,"height":1440,)"
               R"("logicalDpi":96,"logicalBaseDpi":96,"dpr":2}]})");
    file.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QFile::encodeName(path));
    const QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QFont designed(QStringLiteral("Inter"));
    designed.setPointSizeF(10);
    QApplication::setFont(designed);
    return RUN_ALL_TESTS();
}
