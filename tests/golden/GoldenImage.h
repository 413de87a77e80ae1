// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QString>

#include <gtest/gtest.h>

namespace zeph {

/// How far a picture may be from the expected one.
struct GoldenOptions {
    int channelTolerance = 2; ///< a pixel differs when one of its channels is further off
    int allowedPixels = 0;    ///< how many pixels may differ
    /// Keeps the picture in this many shades of grey, for where things are and not how they are
    /// coloured: of a picture with many gradients that makes a file a fifth as large. 0 keeps it as
    /// it is. A pixel may come out as the next shade.
    int shades = 0;
};

/// The folders of golden images. A mismatch writes `<name>.got.png`, `<name>.expected.png` and
/// `<name>.diff.png` side by side into `output`.
struct GoldenFolder {
    QString expected;
    QString output;
    bool updates = false; ///< rewrites the expected pictures that differ instead of failing
};

/// Compares `image` with `<name>.png` of `folder`.
testing::AssertionResult matchesGolden(const QImage &image, const QString &name,
                                       const GoldenOptions &options, const GoldenFolder &folder);

/// Compares `image` with tests/golden/expected/`name`.png; differences go to golden/ of the build
/// tree. With UPDATE_GOLDEN=1 in the environment the expected picture is rewritten.
testing::AssertionResult matchesGolden(const QImage &image, const QString &name,
                                       const GoldenOptions &options = {});

} // namespace zeph
