// SPDX-License-Identifier: MIT
#include "adapters/plugin/PluginFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <utility>

namespace zeph {

PluginFile::PluginFile(QString path)
    : m_path(std::move(path)),
      m_held(open(QFile::encodeName(m_path).constData(), O_RDONLY | O_CLOEXEC)) {}

PluginFile::~PluginFile() {
    // The dynamic linker would take the next library behind that number for this one.
    if (m_held >= 0 && !m_isLoadedByNumber) {
        close(m_held);
    }
}

QString PluginFile::installed(const QString &name) {
    const QDir folder(QCoreApplication::applicationDirPath());
    const QString beside = folder.filePath(name);
    return QFile::exists(beside)
               ? beside
               : folder.filePath(QStringLiteral(ZEPH_PLUGIN_PATH) + QLatin1Char('/') + name);
}

/// Whether what is held is not, or not any more, the file of that name.
bool PluginFile::isReplaced() const {
    struct stat held {};
    struct stat named {};
    return m_held >= 0 && fstat(m_held, &held) == 0 &&
           (stat(QFile::encodeName(m_path).constData(), &named) != 0 ||
            held.st_dev != named.st_dev || held.st_ino != named.st_ino);
}

void *PluginFile::symbol(const char *name) {
    QByteArray path = QFile::encodeName(m_path);
    if (isReplaced()) {
        m_isLoadedByNumber = true;
        path = "/proc/self/fd/" + QByteArray::number(m_held);
    }
    // The libraries behind our plug-ins register types that can't be taken back, or leave threads
    // behind, so that none is ever unloaded.
    void *const library = dlopen(path.constData(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    return library == nullptr ? nullptr : dlsym(library, name);
}

} // namespace zeph
