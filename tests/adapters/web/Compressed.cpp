// SPDX-License-Identifier: MIT
#include "adapters/web/Compressed.h"

#include <zlib.h>

namespace zeph {

namespace {

QByteArray compressed(const QByteArray &plain, int windowBits) {
    z_stream stream{};
    deflateInit2(&stream, Z_BEST_SPEED, Z_DEFLATED, windowBits, 8, Z_DEFAULT_STRATEGY);
    QByteArray result(
        static_cast<qsizetype>(deflateBound(&stream, static_cast<uLong>(plain.size()))),
        Qt::Uninitialized);
    stream.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(plain.constData()));
    stream.avail_in = static_cast<uInt>(plain.size());
    stream.next_out = reinterpret_cast<Bytef *>(result.data());
    stream.avail_out = static_cast<uInt>(result.size());
    deflate(&stream, Z_FINISH);
    result.truncate(static_cast<qsizetype>(stream.total_out));
    deflateEnd(&stream);
    return result;
}

} // namespace

QByteArray gzipped(const QByteArray &plain) {
    constexpr int asGzip = 16;
    return compressed(plain, MAX_WBITS + asGzip);
}

QByteArray deflated(const QByteArray &plain) {
    return compressed(plain, MAX_WBITS);
}

} // namespace zeph
