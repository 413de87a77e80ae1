// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QString>

namespace zeph {

/// The words of a picture with light text on a dark ground, line by line.
QString readWords(const QImage &picture);

/// What the clock shows in the bottom left corner of a picture of the whole screen, as "12:34".
QString readClock(const QImage &screen);

} // namespace zeph
