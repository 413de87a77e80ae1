// SPDX-License-Identifier: MIT
// Draws every symbol with its identifier on one page, large and at the size of a wallpaper row,
// so that a change of one drawing can be judged beside its family.
#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int columns = 6;
constexpr int cellWidth = 232;
constexpr int cellHeight = 92;
constexpr int largeSize = 48;
constexpr int rowSize = 15;
constexpr int gap = 12;

/// Drawn larger and reduced, since a pen of up to one pixel is drawn as a hairline with rough ends.
QImage atRowSize(QSvgRenderer &renderer) {
    QImage large(4 * rowSize, 4 * rowSize, QImage::Format_ARGB32_Premultiplied);
    large.fill(Qt::transparent);
    QPainter painter(&large);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter);
    painter.end();
    return large.scaled(rowSize, rowSize, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

void drawCell(QPainter &painter, const QPoint &corner, const QString &identifier) {
    QSvgRenderer renderer(u":/symbols/"_s + identifier + u".svg"_s);
    const QPoint large = corner + QPoint(gap, gap);
    const QPoint row = large + QPoint(largeSize + gap, (largeSize - rowSize) / 2);
    renderer.render(&painter, QRectF(large, QSizeF(largeSize, largeSize)));
    painter.drawImage(row, atRowSize(renderer));
    const QRect name(corner.x() + gap, corner.y() + gap + largeSize + 4, cellWidth - gap, 16);
    painter.drawText(name, Qt::AlignLeft | Qt::AlignVCenter, identifier);
}

QImage contactSheet(const QStringList &identifiers) {
    const int rows = (static_cast<int>(identifiers.size()) + columns - 1) / columns;
    QImage sheet(columns * cellWidth, rows * cellHeight, QImage::Format_RGB32);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    painter.setRenderHint(QPainter::Antialiasing);
    QFont font(u"Inter"_s);
    font.setPixelSize(11);
    font.setStyleStrategy(QFont::PreferNoShaping); // "3x3" is to be read as it is written
    painter.setFont(font);
    for (int i = 0; i < identifiers.size(); ++i) {
        drawCell(painter, {i % columns * cellWidth, i / columns * cellHeight}, identifiers[i]);
    }
    return sheet;
}

} // namespace

int main(int argc, char **argv) {
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 2) {
        std::fputs("usage: zeph_contact_sheet <picture.png>\n", stderr);
        return 2;
    }
    QStringList identifiers;
    for (const QString &file :
         QDir(u":/symbols"_s).entryList({u"*.svg"_s}, QDir::Files, QDir::Name)) {
        identifiers += file.chopped(4);
    }
    if (identifiers.isEmpty() || !contactSheet(identifiers).save(arguments[1])) {
        std::fprintf(stderr, "cannot write %s\n", qPrintable(arguments[1]));
        return 1;
    }
    return 0;
}
