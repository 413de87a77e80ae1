// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>

#include <sys/stat.h>

namespace zeph {

/// The permission bits of a file as `chmod` writes them, such as 0600; -1 when it isn't there.
inline int fileMode(const QString &path) {
    struct stat status {};
    return stat(QFile::encodeName(path).constData(), &status) == 0
               ? static_cast<int>(status.st_mode & 07777)
               : -1;
}

/// Masks nothing while it lives: what then stays private was made private on purpose.
class NoUmask {
public:
    NoUmask() : m_previous(umask(0)) {}
    ~NoUmask() { umask(m_previous); }
    NoUmask(const NoUmask &) = delete;
    NoUmask &operator=(const NoUmask &) = delete;

private:
    mode_t m_previous;
};

} // namespace zeph
