// SPDX-License-Identifier: MIT
#include "golden/GoldenImage.h"

#include <QDir>

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

QString inFolder(const QString &folder, const QString &fileName) {
    QDir().mkpath(folder);
    return QDir(folder).filePath(fileName);
}

testing::AssertionResult mismatch(const GoldenFolder &folder, const QString &name) {
    return testing::AssertionFailure()
           << name.toStdString() << " differs from the expected picture; see "
           << inFolder(folder.output, name + u".{got,expected,diff}.png"_s).toStdString() << ": ";
}

} // namespace

testing::AssertionResult matchesGolden(const QImage &image, const QString &name,
                                       const GoldenOptions &options, const GoldenFolder &folder) {
    const QImage got = image.convertToFormat(QImage::Format_ARGB32);
    const QString path = inFolder(folder.expected, name + u".png"_s);
    const QImage expected = QImage(path).convertToFormat(QImage::Format_ARGB32);
    Comparison comparison;
    if (got.size() == expected.size() && !got.isNull()) {
        comparison = compare(got, expected, options.channelTolerance);
        if (comparison.differing <= options.allowedPixels) {
            return testing::AssertionSuccess();
        }
    }
    if (folder.updates) {
        return got.save(path)
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
