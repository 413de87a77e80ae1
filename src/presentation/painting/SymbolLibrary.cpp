// SPDX-License-Identifier: MIT
#include "presentation/painting/SymbolLibrary.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr qsizetype keptBytes = 512 * 1024;

bool isPlainName(const QString &identifier) {
    return !identifier.isEmpty() &&
           std::all_of(identifier.begin(), identifier.end(), [](QChar character) {
               return character.isLetterOrNumber() || character == u'.' || character == u'-' ||
                      character == u'_';
           });
}

void drawRing(QPainter &painter, int pixels) {
    const double unit = pixels / 24.0; // of the grid on which the symbols are drawn
    painter.setPen(QPen(Qt::black, std::max(1.0, 1.5 * unit)));
    painter.drawEllipse(QRectF(6 * unit, 6 * unit, 12 * unit, 12 * unit));
}

QImage drawnMask(const QString &file, int pixels) {
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(0);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QSvgRenderer drawing;
    if (!file.isEmpty() && drawing.load(file)) {
        drawing.render(&painter, QRectF(0, 0, pixels, pixels));
    } else {
        drawRing(painter, pixels);
    }
    painter.end();
    return image.convertToFormat(QImage::Format_Alpha8);
}

} // namespace

SymbolLibrary::SymbolLibrary(const QString &folder) : m_folder(folder), m_masks(keptBytes) {}

QString SymbolLibrary::path(const QString &identifier) const {
    return m_folder + u'/' + identifier + u".svg"_s;
}

bool SymbolLibrary::contains(const QString &identifier) const {
    return isPlainName(identifier) && QFile::exists(path(identifier));
}

QImage SymbolLibrary::mask(const QString &identifier, int pixels) {
    const std::pair<QString, int> key(identifier, pixels);
    if (const QImage *known = m_masks.object(key)) {
        return *known;
    }
    QImage made = drawnMask(contains(identifier) ? path(identifier) : QString(), pixels);
    m_masks.insert(key, new QImage(made), made.sizeInBytes());
    return made;
}

} // namespace zeph
