// SPDX-License-Identifier: MIT
#pragma once

#include "support/Environment.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace zeph {

/// A folder with programs of the test's own, which are all that can be found beside the system's
/// `sh`, and data of theirs.
class ProgramFolder {
public:
    /// A program of that name runs `script`; its arguments are "$@", and $FOLDER is this one.
    void install(const QString &name, const QByteArray &script) {
        write(QStringLiteral("bin/") + name,
              "#!/bin/sh\nFOLDER='" + QFile::encodeName(m_folder.path()) + "'\n" + script + '\n');
        QFile::setPermissions(path(QStringLiteral("bin/") + name),
                              QFile::ReadOwner | QFile::ExeOwner);
    }

    void write(const QString &name, const QByteArray &bytes) {
        QDir().mkpath(QFileInfo(path(name)).path());
        QFile file(path(name));
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write(bytes);
    }
    QByteArray read(const QString &name) const {
        QFile file(path(name));
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
    }
    QString path(const QString &name) const { return m_folder.filePath(name); }

private:
    QTemporaryDir m_folder;
    ScopedVariable m_path{"PATH", QFile::encodeName(m_folder.filePath(QStringLiteral("bin")))};
};

} // namespace zeph
