// SPDX-License-Identifier: MIT
#include "base/WholeFile.h"

#include <QSaveFile>

namespace zeph {

std::optional<QString> writeWhole(const QString &path, const QByteArray &bytes,
                                  std::optional<QFileDevice::Permissions> permissions) {
    QSaveFile file(path);
    // A new file has no content yet when its mode is set, so nothing stands open to others. Its
    // bytes are flushed before the commit, which would take half of them for the whole.
    const bool isWritten = file.open(QSaveFile::WriteOnly) &&
                           (!permissions || file.setPermissions(*permissions)) &&
                           file.write(bytes) == bytes.size() && file.flush() && file.commit();
    return isWritten ? std::nullopt : std::optional(file.errorString());
}

} // namespace zeph
