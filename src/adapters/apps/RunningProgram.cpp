// SPDX-License-Identifier: MIT
#include "adapters/apps/RunningProgram.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const QString kDeleted = u" (deleted)"_s;

} // namespace

QString programOfProcess(qint64 process) {
    QString path = QFileInfo(u"/proc/%1/exe"_s.arg(process)).symLinkTarget();
    if (path.endsWith(kDeleted)) {
        path.chop(kDeleted.size()); // the package was upgraded while the program runs
    }
    return path.sliced(path.lastIndexOf(u'/') + 1);
}

} // namespace zeph
