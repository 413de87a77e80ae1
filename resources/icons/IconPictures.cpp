// SPDX-License-Identifier: MIT
// icon_pictures SVG FOLDER SIZE...: draws the SVG into FOLDER/SIZE.png, each SIZE pixels wide.
#include <QDir>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>
#include <cstdlib>
#include <span>

namespace {

bool draw(QSvgRenderer &drawing, int side, const QString &file) {
    QImage picture(side, side, QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing.render(&painter, QRectF(0, 0, side, side));
    painter.end();
    return picture.save(file);
}

} // namespace

int main(int argc, char **argv) {
    const std::span arguments(argv, static_cast<std::size_t>(argc));
    if (arguments.size() < 4) {
        std::fputs("usage: icon_pictures SVG FOLDER SIZE...\n", stderr);
        return EXIT_FAILURE;
    }
    QSvgRenderer drawing(QString::fromLocal8Bit(arguments[1]));
    const QDir folder(QString::fromLocal8Bit(arguments[2]));
    if (!drawing.isValid() || !folder.mkpath(QStringLiteral("."))) {
        std::fprintf(stderr, "icon_pictures: cannot read %s or write to %s\n", arguments[1],
                     arguments[2]);
        return EXIT_FAILURE;
    }
    for (const char *word : arguments.subspan(3)) {
        const int side = QByteArray(word).toInt();
        const QString file = folder.filePath(QString::number(side) + QStringLiteral(".png"));
        if (side <= 0 || !draw(drawing, side, file)) {
            std::fprintf(stderr, "icon_pictures: cannot write %s\n", qPrintable(file));
            return EXIT_FAILURE;
        }
    }
    return EXIT_SUCCESS;
}
