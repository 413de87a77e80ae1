// SPDX-License-Identifier: MIT
#include "adapters/session/plasma/PictureFolder.h"

#include "adapters/session/plasma/PictureFile.h"
#include "adapters/session/plasma/PictureNames.h"
#include "base/PrivateFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr int kFirstCopies = 2;

} // namespace

bool PictureFolder::writeWhole(quint64 writer, const QImage &image) {
    const std::lock_guard guard(m_mutex);
    if (writer != m_writer) {
        return true;
    }
    if (!prepare() || !put(writer, image, image.rect(), true)) {
        return false;
    }
    removeBefore(m_number);
    if (!m_whole.isEmpty() && isFirst(writer)) {
        copyWhole();
    }
    return true;
}

bool PictureFolder::writePatches(quint64 writer, const QImage &image,
                                 const std::vector<QRect> &parts) {
    const std::lock_guard guard(m_mutex);
    return writer != m_writer ||
           (prepare() && std::all_of(parts.begin(), parts.end(), [&](const QRect &part) {
                return put(writer, image, part, false);
            }));
}

bool PictureFolder::writeNothing(quint64 writer) {
    QImage nothing(1, 1, QImage::Format_ARGB32);
    nothing.fill(Qt::transparent);
    return writeWhole(writer, nothing);
}

void PictureFolder::keep() {
    const std::lock_guard guard(m_mutex);
    copyWhole();
}

void PictureFolder::copyWhole() const {
    const QString around = QFileInfo(m_kept).path();
    if (!m_kept.isEmpty() && !m_whole.isEmpty() && makePrivateFolder(QFileInfo(around).path()) &&
        makePrivateFolder(around)) {
        copyPicture(m_folder + u'/' + m_whole, m_kept);
    }
}

void PictureFolder::remove(quint64 writer) {
    const std::lock_guard guard(m_mutex);
    if (writer == m_writer) {
        QDir(m_folder).removeRecursively();
        m_whole.clear();
        if (!m_kept.isEmpty()) {
            QFile::remove(m_kept);
        }
    }
}

/// Counts the pictures that it is asked about.
bool PictureFolder::isFirst(quint64 writer) {
    if (std::exchange(m_keptWriter, writer) != writer) {
        m_copies = 0;
    }
    if (m_copies == kFirstCopies) {
        return false;
    }
    ++m_copies;
    return true;
}

/// Has a folder, and knows the highest number of what an earlier run left in it.
bool PictureFolder::prepare() {
    const QDir folder(m_folder);
    if (m_number > 0 && folder.exists()) {
        return true;
    }
    const QString around = QFileInfo(m_folder).path();
    if (!makePrivateFolder(QFileInfo(around).path()) || !makePrivateFolder(around) ||
        !makePrivateFolder(m_folder)) {
        return false;
    }
    const QStringList names = folder.entryList(QDir::Files);
    for (const QString &name : names) {
        m_number = std::max(m_number, pictureNumber(name).value_or(0));
    }
    return true;
}

bool PictureFolder::put(quint64 writer, const QImage &image, const QRect &part, bool isWhole) {
    const QFileInfo folder(m_folder);
    const QString underWay = QFileInfo(folder.path()).path() + u"/.picture-"_s + folder.fileName();
    // What nothing can be seen of has transparency, which a bitmap has not.
    const bool isCompressed = isWhole && (image.hasAlphaChannel() ||
                                          qint64{part.width()} * part.height() > mostPlainPixels);
    if (!writePicture(underWay, image, part,
                      isCompressed ? PictureForm::compressed : PictureForm::plain)) {
        return false;
    }
    if (writer != m_writer) {
        QFile::remove(underWay); // it was taken over meanwhile
        return true;
    }
    const quint64 number = m_number + 1;
    const QString name =
        isWhole ? wholePictureName(number, isCompressed) : patchName(number, part.topLeft());
    if (!moveOver(underWay, m_folder + u'/' + name)) {
        QFile::remove(underWay);
        return false;
    }
    m_number = number;
    if (isWhole) {
        m_whole = image.hasAlphaChannel() ? QString() : name;
    }
    return true;
}

void PictureFolder::removeBefore(quint64 number) const {
    QDir folder(m_folder);
    const QStringList names = folder.entryList(QDir::Files);
    for (const QString &name : names) {
        if (pictureNumber(name).value_or(number) < number) {
            folder.remove(name);
        }
    }
}

} // namespace zeph
