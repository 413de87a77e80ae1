// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QFile>
#include <QTemporaryDir>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>

namespace zeph {

/// A temporary folder that the test fills; names are in the bytes of the file system.
class FolderTree {
public:
    QByteArray path() const { return QFile::encodeName(m_folder.path()); }
    QByteArray path(const QByteArray &name) const { return path() + '/' + name; }

    /// A file with a hole of `size` bytes.
    void addFile(const QByteArray &name, off_t size) const {
        const int file = ::open(path(name).constData(), O_WRONLY | O_CREAT | O_EXCL, 0644);
        ASSERT_GE(file, 0) << name.toStdString();
        EXPECT_EQ(::ftruncate(file, size), 0);
        ::close(file);
    }
    void write(const QByteArray &name, const QByteArray &bytes) const {
        const int file = ::open(path(name).constData(), O_WRONLY | O_TRUNC);
        ASSERT_GE(file, 0) << name.toStdString();
        EXPECT_EQ(::write(file, bytes.constData(), static_cast<std::size_t>(bytes.size())),
                  bytes.size());
        ::close(file);
    }
    void addFolder(const QByteArray &name) const {
        ASSERT_EQ(::mkdir(path(name).constData(), 0755), 0);
    }
    void addPipe(const QByteArray &name) const {
        ASSERT_EQ(::mkfifo(path(name).constData(), 0600), 0);
    }
    void addLink(const QByteArray &name, const QByteArray &target) const {
        ASSERT_EQ(::symlink(target.constData(), path(name).constData()), 0);
    }

private:
    QTemporaryDir m_folder;
};

} // namespace zeph
