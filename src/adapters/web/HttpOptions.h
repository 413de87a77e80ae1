// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

namespace zeph {

/// What all requests of a client have in common.
struct HttpOptions {
    QByteArray userAgent = "Tavi"; ///< where the caller sets none
    QString authoritiesFile = {};  ///< trusted instead of the system's, in PEM; empty for those
    qsizetype bodyLimit = qsizetype{16} * 1024 * 1024; ///< bytes, counted after decompression
};

} // namespace zeph
