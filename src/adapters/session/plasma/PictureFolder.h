// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QString>

#include <atomic>
#include <mutex>
#include <vector>

namespace zeph {

/// The pictures of one output, by which our wallpaper in Plasma shows the newest whole one and
/// what was laid over it since. They appear whole or not at all, and stay when we end, so that the
/// desktop keeps its picture; a copy of the whole one outlives the session too. Callable from any
/// thread; what reads or writes takes as long as the disk does.
class PictureFolder {
public:
    /// Larger pictures than a display of 1920 × 1080 has are compressed.
    static constexpr qint64 mostPlainPixels = qint64{1920} * 1080;

    /// `folder` is made, for the user alone, by the first picture; so is the one around it. Files
    /// under way lie in the folder around both. `kept` is the file of the copy; without one there
    /// is none.
    explicit PictureFolder(QString folder, QString kept = {})
        : m_folder(std::move(folder)), m_kept(std::move(kept)) {}

    /// Answers who writes from now on. What an earlier writer still brings is left out. Never waits
    /// for one.
    quint64 takeOver() { return ++m_writer; }

    // Each is false when the pictures could not be written, as on a full disk.

    /// The first two of a writer are copied as by `keep`: of the first frame many facts are
    /// missing.
    bool writeWhole(quint64 writer, const QImage &image);
    bool writePatches(quint64 writer, const QImage &image, const std::vector<QRect> &parts);

    /// A whole picture that nothing can be seen of.
    bool writeNothing(quint64 writer);

    /// Copies the last whole picture that something can be seen of to where it outlives the
    /// session. A copy that can't be made is none.
    void keep();

    /// Removes the folder with all pictures.
    void remove(quint64 writer);

private:
    bool prepare();
    bool isFirst(quint64 writer);
    bool put(quint64 writer, const QImage &image, const QRect &part, bool isWhole);
    void removeBefore(quint64 number) const;
    void copyWhole() const;

    const QString m_folder;
    const QString m_kept;
    std::atomic<quint64> m_writer = 0;
    std::mutex m_mutex;       // of what follows
    quint64 m_keptWriter = 0; // whose first pictures were copied
    int m_copies = 0;         // so many of them
    quint64 m_number = 0;     // of the last picture
    QString m_whole;          // the last one that something can be seen of; empty when it is gone
};

} // namespace zeph
