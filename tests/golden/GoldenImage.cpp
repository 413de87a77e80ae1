// SPDX-License-Identifier: MIT
#include "golden/GoldenImage.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

int distance(QRgb one, QRgb other) {
    return std::max({std::abs(qRed(one) - qRed(other)), std::abs(qGreen(one) - qGreen(other)),
                     std::abs(qBlue(one) - qBlue(other)), std::abs(qAlpha(one) - qAlpha(other))});
}

struct Comparison {
    int differing = 0;
    int furthest = 0;
    QImage picture; ///< the expected one, pale, with the differing pixels in red
};

/// Both pictures are ARGB32 and of one size.
Comparison compare(const QImage &got, const QImage &expected, int tolerance) {
    Comparison result;
    result.picture = QImage(got.size(), QImage::Format_RGB32);
    for (int y = 0; y < got.height(); ++y) {
        for (int x = 0; x < got.width(); ++x) {
            const int off = distance(got.pixel(x, y), expected.pixel(x, y));
            const int pale = 192 + qGray(expected.pixel(x, y)) / 4;
            const bool differs = off > tolerance;
            result.differing += differs ? 1 : 0;
            result.furthest = std::max(result.furthest, off);
            result.picture.setPixel(x, y, differs ? qRgb(255, 0, 0) : qRgb(pale, pale, pale));
        }
    }
    return result;
}

constexpr int white = 255;

/// `image` in shades of grey from black to white.
QImage inShades(const QImage &image, int shades) {
    QImage grey(image.size(), QImage::Format_Grayscale8);
    for (int y = 0; y < grey.height(); ++y) {
        uchar *const line = grey.scanLine(y);
        for (int x = 0; x < grey.width(); ++x) {
            const int shade = (qGray(image.pixel(x, y)) * (shades - 1) + white / 2) / white;
            line[x] = static_cast<uchar>(shade * white / (shades - 1));
        }
    }
    return grey;
}

QString inFolder(const QString &folder, const QString &fileName) {
    const QString path = QDir(folder).filePath(fileName);
    QDir().mkpath(QFileInfo(path).path());
    return path;
}

testing::AssertionResult mismatch(const GoldenFolder &folder, const QString &name) {
    return testing::AssertionFailure()
           << name.toStdString() << " differs from the expected picture; see "
           << inFolder(folder.output, name + u".{got,expected,diff}.png"_s).toStdString() << ": ";
}

} // namespace

testing::AssertionResult matchesGolden(const QImage &image, const QString &name,
                                       const GoldenOptions &options, const GoldenFolder &folder) {
    const QImage kept = options.shades > 1 ? inShades(image, options.shades) : image;
    const QImage got = kept.convertToFormat(QImage::Format_ARGB32);
    const int tolerance =
        options.channelTolerance + (options.shades > 1 ? white / (options.shades - 1) : 0);
    const QString path = inFolder(folder.expected, name + u".png"_s);
    const QImage expected = QImage(path).convertToFormat(QImage::Format_ARGB32);
    Comparison comparison;
    if (got.size() == expected.size() && !got.isNull()) {
        comparison = compare(got, expected, tolerance);
        if (comparison.differing <= options.allowedPixels) {
            return testing::AssertionSuccess();
        }
    }
    if (folder.updates) {
        return kept.save(path)
                   ? testing::AssertionSuccess()
                   : testing::AssertionFailure() << "cannot write " << path.toStdString();
    }
    got.save(inFolder(folder.output, name + u".got.png"_s));
    if (expected.isNull()) {
        return mismatch(folder, name) << "there is no expected picture (UPDATE_GOLDEN=1 makes it)";
    }
    expected.save(inFolder(folder.output, name + u".expected.png"_s));
    if (got.size() != expected.size()) {
        return mismatch(folder, name)
               << "it is " << got.width() << " by " << got.height() << " instead of "
               << expected.width() << " by " << expected.height();
    }
    comparison.picture.save(inFolder(folder.output, name + u".diff.png"_s));
    return mismatch(folder, name) << comparison.differing << " pixels differ, by up to "
                                  << comparison.furthest << " of 255";
}

testing::AssertionResult matchesGolden(const QImage &image, const QString &name,
                                       const GoldenOptions &options) {
    const GoldenFolder folder{QStringLiteral(ZEPH_GOLDEN_EXPECTED),
                              QStringLiteral(ZEPH_GOLDEN_OUTPUT),
                              qEnvironmentVariable("UPDATE_GOLDEN") == u"1"};
    return matchesGolden(image, name, options, folder);
}

} // namespace zeph
