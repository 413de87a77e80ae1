// SPDX-License-Identifier: MIT
#include "adapters/session/identity/Edid.h"

#include <QtEndian>

#include <algorithm>

namespace zeph {

namespace {

constexpr qsizetype kBlock = 128;
constexpr qsizetype kMaker = 8; // where it lies in the block, as the ones below
constexpr qsizetype kSerialNumber = 12;
constexpr qsizetype kFirstDescriptor = 54;
constexpr qsizetype kDescriptor = 18; // the size of one
constexpr qsizetype kDescriptors = 4;
constexpr qsizetype kTextInDescriptor = 5;

constexpr char kModelText = '\xFC';
constexpr char kSerialText = '\xFF';

const QByteArray kMagic("\0\xFF\xFF\xFF\xFF\xFF\xFF\0", 8);

// Three letters of five bits each, 1 for A.
QString makerIn(const QByteArray &bytes) {
    const auto packed = qFromBigEndian<quint16>(bytes.constData() + kMaker);
    QString letters;
    for (const int shift : {10, 5, 0}) {
        const int letter = (packed >> shift) & 0x1F;
        if (letter < 1 || letter > 26) {
            return {};
        }
        letters += QChar(u'A' + letter - 1);
    }
    return letters;
}

QString textIn(const QByteArray &descriptor) {
    QByteArray text = descriptor.sliced(kTextInDescriptor);
    const auto end = std::find_if(text.begin(), text.end(),
                                  [](char letter) { return letter == '\n' || letter == '\0'; });
    text.truncate(std::distance(text.begin(), end));
    std::replace_if(
        text.begin(), text.end(), [](char letter) { return letter < ' ' || letter > '~'; }, '-');
    return QString::fromLatin1(text).simplified();
}

} // namespace

EdidWords readEdid(const QByteArray &bytes) {
    if (bytes.size() < kBlock || !bytes.startsWith(kMagic)) {
        return {};
    }
    EdidWords words;
    words.manufacturer = makerIn(bytes);
    if (const auto number = qFromLittleEndian<quint32>(bytes.constData() + kSerialNumber)) {
        words.serialNumber = QString::number(number);
    }
    for (qsizetype i = 0; i < kDescriptors; ++i) {
        const QByteArray descriptor = bytes.sliced(kFirstDescriptor + i * kDescriptor, kDescriptor);
        if (!descriptor.startsWith(QByteArray(3, '\0'))) {
            continue; // a timing
        }
        if (descriptor[3] == kModelText) {
            words.model = textIn(descriptor);
        } else if (descriptor[3] == kSerialText) {
            words.serialNumber = textIn(descriptor);
        }
    }
    return words;
}

} // namespace zeph
