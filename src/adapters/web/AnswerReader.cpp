// SPDX-License-Identifier: MIT
#include "adapters/web/AnswerReader.h"

#include <QByteArrayView>

#include <exception>

namespace zeph {

namespace {

// Real answers have a few thousand bytes of it.
constexpr qsizetype headerLimit = qsizetype{256} * 1024;

} // namespace

std::size_t AnswerReader::takeHeaderLine(char *bytes, std::size_t size, std::size_t count,
                                         void *reader) noexcept {
    const std::size_t length = size * count;
    try {
        const QByteArrayView line(bytes, static_cast<qsizetype>(length));
        return static_cast<AnswerReader *>(reader)->addHeaderLine(line) ? length : 0;
    } catch (const std::exception &) {
        return 0; // nothing may be thrown through the library; this ends the transfer
    }
}

std::size_t AnswerReader::takeBody(char *bytes, std::size_t size, std::size_t count,
                                   void *reader) noexcept {
    const std::size_t length = size * count;
    try {
        const QByteArrayView piece(bytes, static_cast<qsizetype>(length));
        // Told apart from 0, because an empty piece is no failure.
        return static_cast<AnswerReader *>(reader)->addBody(piece) ? length : length + 1;
    } catch (const std::exception &) {
        return length + 1;
    }
}

bool AnswerReader::addHeaderLine(QByteArrayView line) {
    m_headerBytes += line.size();
    if (m_headerBytes > headerLimit) {
        m_excess = Excess::headers;
        return false;
    }
    if (!m_inHeader && line.startsWith("HTTP/")) {
        // An interim answer came before: only the last one's headers count.
        m_response.headers.clear();
        m_inHeader = true;
        return true;
    }
    const QByteArrayView content = line.trimmed();
    if (content.isEmpty()) {
        m_inHeader = false;
    }
    const qsizetype colon = content.indexOf(':');
    const bool continuesLine = line.startsWith(' ') || line.startsWith('\t');
    if (m_inHeader && colon > 0 && !continuesLine) {
        m_response.headers.push_back({content.first(colon).trimmed().toByteArray(),
                                      content.sliced(colon + 1).trimmed().toByteArray()});
    }
    return true;
}

bool AnswerReader::addBody(QByteArrayView piece) {
    if (piece.size() > m_bodyLimit - m_response.body.size()) {
        m_excess = Excess::body;
        return false;
    }
    m_response.body.append(piece);
    return true;
}

} // namespace zeph
