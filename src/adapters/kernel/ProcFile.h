// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

namespace zeph {

/// The whole of a file of /proc; empty when it can't be read.
QByteArray procFileContents(const QString &path);

} // namespace zeph
