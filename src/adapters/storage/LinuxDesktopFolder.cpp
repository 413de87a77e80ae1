// SPDX-License-Identifier: MIT
#include "adapters/storage/LinuxDesktopFolder.h"

#include "adapters/storage/SmallFile.h"

#include <QList>
#include <QSet>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <memory>

namespace zeph {

namespace {

constexpr qint64 largestHiddenList = 1'048'576;

struct DirectoryCloser {
    void operator()(DIR *directory) const { ::closedir(directory); }
};
using Directory = std::unique_ptr<DIR, DirectoryCloser>;

Directory openDirectory(const QByteArray &path) {
    // A pipe or a device in its place is refused before it is waited for.
    const int descriptor =
        ::open(path.constData(), O_RDONLY | O_DIRECTORY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0) {
        return nullptr;
    }
    Directory directory(::fdopendir(descriptor));
    if (!directory) {
        ::close(descriptor);
    }
    return directory;
}

QSet<QByteArray> hiddenNames(const QByteArray &path) {
    const auto list = readSmallFile(path + "/.hidden", largestHiddenList);
    if (!list) {
        return {};
    }
    const QList<QByteArray> lines = list->split('\n');
    return {lines.begin(), lines.end()};
}

/// What the listing itself tells of an entry, and else the entry's own record.
FolderEntry entryOf(int directory, const dirent &found) {
    FolderEntry entry{QString::fromUtf8(&found.d_name[0]), std::nullopt, std::nullopt};
    if (found.d_type == DT_DIR) {
        entry.isDirectory = true;
        return entry;
    }
    struct stat status {};
    if (::fstatat(directory, &found.d_name[0], &status, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT) !=
        0) {
        return entry; // refused, or gone since
    }
    entry.isDirectory = S_ISDIR(status.st_mode);
    if (S_ISREG(status.st_mode) || S_ISLNK(status.st_mode)) {
        entry.fileSize = status.st_size;
    }
    return entry;
}

} // namespace

bool LinuxDesktopFolder::visitEntries(const QByteArray &url, const Visitor &visit) const {
    const Directory directory = openDirectory(url);
    if (!directory) {
        return false;
    }
    const QSet<QByteArray> hidden = hiddenNames(url);
    for (;;) {
        errno = 0; // the only way to tell the end from a failure
        const dirent *const found = ::readdir(directory.get());
        if (found == nullptr) {
            return errno == 0;
        }
        if (found->d_name[0] != '.' && !hidden.contains(QByteArray(&found->d_name[0]))) {
            visit(entryOf(::dirfd(directory.get()), *found));
        }
    }
}

} // namespace zeph
