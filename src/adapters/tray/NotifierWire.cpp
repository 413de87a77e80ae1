// SPDX-License-Identifier: MIT
#include "adapters/tray/NotifierWire.h"

#include <QDBusMetaType>
#include <QtEndian>

namespace zeph::notifierwire {

void registerTypes() {
    qDBusRegisterMetaType<Pixmap>();
    qDBusRegisterMetaType<QList<Pixmap>>();
    qDBusRegisterMetaType<ToolTip>();
}

Pixmap pixmapOf(const QImage &picture) {
    const QImage plain = picture.convertToFormat(QImage::Format_ARGB32);
    Pixmap pixmap{.width = plain.width(), .height = plain.height()};
    pixmap.bytes.reserve(plain.sizeInBytes());
    for (int y = 0; y < plain.height(); ++y) {
        for (int x = 0; x < plain.width(); ++x) {
            const quint32 pixel = qToBigEndian(plain.pixel(x, y));
            pixmap.bytes.append(
                QByteArray::fromRawData(reinterpret_cast<const char *>(&pixel), sizeof pixel));
        }
    }
    return pixmap;
}

QDBusArgument &operator<<(QDBusArgument &argument, const Pixmap &pixmap) {
    argument.beginStructure();
    argument << pixmap.width << pixmap.height << pixmap.bytes;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, Pixmap &pixmap) {
    argument.beginStructure();
    argument >> pixmap.width >> pixmap.height >> pixmap.bytes;
    argument.endStructure();
    return argument;
}

QDBusArgument &operator<<(QDBusArgument &argument, const ToolTip &toolTip) {
    argument.beginStructure();
    argument << toolTip.iconName << toolTip.pixmaps << toolTip.title << toolTip.text;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, ToolTip &toolTip) {
    argument.beginStructure();
    argument >> toolTip.iconName >> toolTip.pixmaps >> toolTip.title >> toolTip.text;
    argument.endStructure();
    return argument;
}

} // namespace zeph::notifierwire
