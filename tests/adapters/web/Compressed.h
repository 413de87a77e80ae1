// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

namespace zeph {

/// As the content encodings "gzip" and "deflate" have it.
QByteArray gzipped(const QByteArray &plain);
QByteArray deflated(const QByteArray &plain);

} // namespace zeph
