// SPDX-License-Identifier: MIT
#include "services/simple/rss/XmlText.h"

#include <QRegularExpression>
#include <QStringDecoder>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

/// The encoding that the XML declaration names, upper-cased; empty when it names none.
QByteArray declaredEncoding(const QByteArray &bytes) {
    constexpr qsizetype longestDeclaration = 512;
    static const QRegularExpression declaration(
        uR"(^<\?xml\b[^>]*?\sencoding\s*=\s*["']([A-Za-z0-9._:-]+)["'])"_s);
    const QString start = QString::fromLatin1(bytes.left(longestDeclaration));
    return declaration.match(start).captured(1).toLatin1().toUpper();
}

bool isWide(const QByteArray &encoding) {
    return encoding.startsWith("UTF-16") || encoding.startsWith("UTF-32") ||
           encoding.startsWith("ISO-10646-UCS") || encoding.startsWith("UCS");
}

QStringDecoder decoderFor(const QByteArray &bytes) {
    const auto seen = QStringConverter::encodingForData(bytes, u'<');
    if (seen) {
        return QStringDecoder(*seen);
    }
    const QByteArray declared = declaredEncoding(bytes);
    return declared.isEmpty() || isWide(declared) ? QStringDecoder(QStringConverter::Utf8)
                                                  : QStringDecoder(declared.constData());
}

} // namespace

std::optional<XmlText> xmlText(const QByteArray &bytes) {
    QStringDecoder decoder = decoderFor(bytes);
    if (!decoder.isValid()) {
        return std::nullopt;
    }
    XmlText result;
    result.text.reserve(bytes.size());
    // Tag by tag, so that a bad byte costs nothing of what stands complete before it.
    for (qsizetype start = 0; start < bytes.size();) {
        const qsizetype end = bytes.indexOf('>', start);
        const qsizetype next = end < 0 ? bytes.size() : end + 1;
        const QString piece = decoder.decode(QByteArrayView(bytes).sliced(start, next - start));
        if (decoder.hasError()) {
            result.isWhole = false;
            break;
        }
        result.text += piece;
        start = next;
    }
    return result;
}

} // namespace zeph
