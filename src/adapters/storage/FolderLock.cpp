// SPDX-License-Identifier: MIT
#include "adapters/storage/FolderLock.h"

#include "base/Log.h"
#include "base/PrivateFolder.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QThread>

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <cstring>

namespace zeph {

namespace {

constexpr unsigned long betweenTries = 20; // milliseconds

} // namespace

FolderLock::FolderLock(const QString &folder, std::chrono::milliseconds patience) {
    makePrivateFolder(folder);
    const QByteArray path = QFile::encodeName(folder + QStringLiteral("/zeph.lock"));
    m_file.reset(::open(path.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0600));
    const QDeadlineTimer deadline(patience);
    int error = 0;
    while ((error = ::flock(m_file.get(), LOCK_EX | LOCK_NB) == 0 ? 0 : errno) == EWOULDBLOCK &&
           !deadline.hasExpired()) {
        QThread::msleep(betweenTries);
    }
    m_isHeldByAnother = error == EWOULDBLOCK;
    if (error != 0) {
        qCInfo(logHistory, "the data folder can't be locked: %s", std::strerror(error));
    }
}

} // namespace zeph
