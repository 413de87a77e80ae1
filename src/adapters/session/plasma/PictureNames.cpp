// SPDX-License-Identifier: MIT
#include "adapters/session/plasma/PictureNames.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

QString digits(quint64 number) {
    // So many that the order of names is that of numbers.
    return QString::number(number).rightJustified(12, u'0');
}

} // namespace

QString pictureFolderName(const QString &connector) {
    static const QRegularExpression others(u"[^A-Za-z0-9_-]"_s);
    return connector.isEmpty() ? u"_"_s : QString(connector).replace(others, u"_"_s);
}

QString wholePictureName(quint64 number, bool isCompressed) {
    return u"f-%1.%2"_s.arg(digits(number), isCompressed ? u"png"_s : u"bmp"_s);
}

QString patchName(quint64 number, QPoint place) {
    return u"p-%1-%2-%3.bmp"_s.arg(digits(number)).arg(place.x()).arg(place.y());
}

std::optional<quint64> pictureNumber(const QString &fileName) {
    static const QRegularExpression form(
        u"^(?:f-(\\d+)\\.(?:bmp|png)|p-(\\d+)-\\d+-\\d+\\.bmp)$"_s);
    const QRegularExpressionMatch match = form.match(fileName);
    if (!match.hasMatch()) {
        return std::nullopt;
    }
    const QString number = match.captured(1);
    return (number.isEmpty() ? match.captured(2) : number).toULongLong();
}

} // namespace zeph
