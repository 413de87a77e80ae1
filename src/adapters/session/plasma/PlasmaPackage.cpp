// SPDX-License-Identifier: MIT
#include "adapters/session/plasma/PlasmaPackage.h"

#include "adapters/session/plasma/PlasmaScripts.h"
#include "base/WholeFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <optional>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

// By it a package is known to be one.
const QString kDescription = u"metadata.json"_s;

std::optional<QByteArray> bytesOf(const QString &path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    return file.readAll();
}

bool bringFile(const QString &from, const QString &to) {
    const auto wanted = bytesOf(from);
    if (!wanted) {
        return false;
    }
    if (bytesOf(to) == wanted) {
        return true;
    }
    return QDir().mkpath(QFileInfo(to).path()) && !writeWhole(to, *wanted);
}

} // namespace

QString plasmaPackageSource() {
    const QString folder = QCoreApplication::applicationDirPath() + u'/';
    const QString beside = folder + QStringLiteral(ZEPH_PLASMA_PACKAGE_FOLDER);
    return QFileInfo::exists(beside) ? beside : folder + QStringLiteral(ZEPH_PLASMA_PACKAGE_PATH);
}

QString plasmaPackageTarget() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           u"/plasma/wallpapers/"_s + plasmaPackageId;
}

QString plasmaPicturesFolder() {
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return runtime.isEmpty() ? QString() : runtime + u"/tavi/plasma"_s;
}

QString plasmaKeptPicturesFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
           u"/tavi/plasma"_s;
}

void removePlasmaPackage(const QString &target, const QStringList &pictures) {
    QDir(target).removeRecursively();
    for (const QString &folder : pictures) {
        if (!folder.isEmpty()) { // which would be the current one
            QDir(folder).removeRecursively();
        }
    }
}

bool installPlasmaPackage(const QString &source, const QString &target) {
    const QDir from(source);
    bool isDone = from.exists(kDescription);
    QDirIterator files(source, QDir::Files, QDirIterator::Subdirectories);
    while (isDone && files.hasNext()) {
        const QString name = from.relativeFilePath(files.next());
        isDone = name == kDescription || bringFile(from.filePath(name), target + u'/' + name);
    }
    // Last, so that nobody finds half a package.
    return isDone && bringFile(from.filePath(kDescription), target + u'/' + kDescription);
}

} // namespace zeph
