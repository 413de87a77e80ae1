// SPDX-License-Identifier: MIT
#include "ScreenReader.h"

#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// Text recognition wants dark letters of about thirty pixels, so each kind of text is scaled.
QString recognise(const QImage &picture, double factor, const QStringList &options) {
    QImage page =
        picture.convertToFormat(QImage::Format_Grayscale8)
            .scaled(picture.size() * factor, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
            .convertToFormat(QImage::Format_Grayscale8);
    page.invertPixels();
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"page.png"_s);
    if (!page.save(path)) {
        return {};
    }
    QProcess tesseract;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"OMP_THREAD_LIMIT"_s, u"1"_s);
    tesseract.setProcessEnvironment(environment);
    tesseract.start(u"tesseract"_s, QStringList{path, u"stdout"_s} + options);
    EXPECT_TRUE(tesseract.waitForFinished(60'000)) << "tesseract did not run";
    return QString::fromUtf8(tesseract.readAllStandardOutput()).trimmed();
}

} // namespace

QString readWords(const QImage &picture) {
    return recognise(picture, 2, {u"--psm"_s, u"11"_s});
}

QString readClock(const QImage &screen) {
    const QImage corner = screen.copy(30, screen.height() - 162, 400, 110);
    return recognise(corner, 0.5,
                     {u"--psm"_s, u"7"_s, u"-c"_s, u"tessedit_char_whitelist=0123456789:"_s});
}

} // namespace zeph
