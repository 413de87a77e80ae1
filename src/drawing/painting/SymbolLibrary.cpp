// SPDX-License-Identifier: MIT
#include "drawing/painting/SymbolLibrary.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>
#include <cmath>
#include <numeric>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr qsizetype keptBytes = qsizetype{512} << 10;
constexpr int enlargement = 4;
constexpr int enlargedUpTo = 96; // device pixels; beyond, each stroke is wide enough

bool isPlainName(const QString &identifier) {
    return !identifier.isEmpty() &&
           std::all_of(identifier.begin(), identifier.end(), [](QChar character) {
               return character.isLetterOrNumber() || character == u'.' || character == u'-' ||
                      character == u'_';
           });
}

/// Each `factor` by `factor` pixels of `mask` averaged to one.
QImage reduced(const QImage &mask, int factor) {
    QImage result(mask.size() / factor, QImage::Format_Alpha8);
    for (int y = 0; y < result.height(); ++y) {
        uchar *line = result.scanLine(y);
        for (int x = 0; x < result.width(); ++x) {
            int sum = factor * factor / 2;
            for (int row = 0; row < factor; ++row) {
                const uchar *cover = mask.constScanLine(y * factor + row) + qsizetype{x} * factor;
                sum = std::accumulate(cover, cover + factor, sum);
            }
            line[x] = static_cast<uchar>(sum / (factor * factor));
        }
    }
    return result;
}

void drawRing(QPainter &painter, int pixels, double stroke) {
    const double unit = pixels / 24.0; // of the grid on which the symbols are drawn
    painter.setPen(QPen(Qt::black, stroke * unit));
    painter.drawEllipse(QRectF(6 * unit, 6 * unit, 12 * unit, 12 * unit));
}

/// The text of the drawing, its strokes as wide as they are wanted.
QByteArray drawingOf(const QString &file, double stroke) {
    QFile source(file);
    if (file.isEmpty() || !source.open(QFile::ReadOnly)) {
        return {};
    }
    QByteArray text = source.readAll();
    if (stroke != SymbolLibrary::usualStroke) {
        text.replace(R"(stroke-width="1.5")",
                     R"(stroke-width=")" + QByteArray::number(stroke, 'f', 3) + '"');
    }
    return text;
}

/// Drawn larger and reduced, since Qt draws a pen of up to one pixel as a hairline.
QImage drawnMask(const QString &file, int pixels, double stroke) {
    const int side = pixels <= enlargedUpTo ? pixels * enlargement : pixels;
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(0);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QSvgRenderer drawing;
    if (const QByteArray text = drawingOf(file, stroke); !text.isEmpty() && drawing.load(text)) {
        drawing.render(&painter, QRectF(0, 0, side, side));
    } else {
        drawRing(painter, side, stroke);
    }
    painter.end();
    return reduced(image.convertToFormat(QImage::Format_Alpha8), side / pixels);
}

} // namespace

SymbolLibrary::SymbolLibrary(QString folder) : m_folder(std::move(folder)), m_masks(keptBytes) {}

QString SymbolLibrary::path(const QString &identifier) const {
    return m_folder + u'/' + identifier + u".svg"_s;
}

bool SymbolLibrary::contains(const QString &identifier) const {
    return isPlainName(identifier) && QFile::exists(path(identifier));
}

SymbolLibrary::Key SymbolLibrary::keyOf(const Wanted &wanted) {
    const auto thousandths = static_cast<int>(std::lround(wanted.stroke * 1000));
    return {wanted.identifier, {wanted.pixels, thousandths}};
}

QImage SymbolLibrary::mask(const QString &identifier, int pixels, double stroke) {
    const Wanted wanted{identifier, pixels, stroke};
    if (const QImage *known = m_masks.object(keyOf(wanted))) {
        return *known;
    }
    QImage made = drawn(wanted);
    keep(wanted, made);
    return made;
}

QImage SymbolLibrary::drawn(const Wanted &wanted) const {
    return drawnMask(contains(wanted.identifier) ? path(wanted.identifier) : QString(),
                     wanted.pixels, wanted.stroke);
}

void SymbolLibrary::keep(const Wanted &wanted, const QImage &mask) {
    m_masks.insert(keyOf(wanted), new QImage(mask), mask.sizeInBytes());
}

} // namespace zeph
