// SPDX-License-Identifier: MIT
#include "sensors/DesktopMonitor.h"

#include "platform/DesktopFolder.h"

#include <QHash>

#include <limits>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

const QHash<QString, DesktopCategory> &categoriesByExtension() {
    static const QHash<QString, DesktopCategory> table = [] {
        QHash<QString, DesktopCategory> extensions;
        const auto add = [&](DesktopCategory category, std::initializer_list<QString> names) {
            for (const QString &name : names) {
                extensions.insert(name, category);
            }
        };
        add(DesktopCategory::images, {u"png"_s, u"jpg"_s, u"jpeg"_s, u"gif"_s, u"heic"_s, u"heif"_s,
                                      u"webp"_s, u"tiff"_s, u"tif"_s, u"bmp"_s, u"svg"_s});
        add(DesktopCategory::documents,
            {u"pdf"_s, u"doc"_s, u"docx"_s, u"txt"_s, u"md"_s, u"rtf"_s, u"pages"_s, u"key"_s,
             u"numbers"_s, u"xls"_s, u"xlsx"_s, u"ppt"_s, u"pptx"_s, u"csv"_s});
        add(DesktopCategory::archives,
            {u"zip"_s, u"dmg"_s, u"rar"_s, u"7z"_s, u"tar"_s, u"gz"_s, u"pkg"_s});
        add(DesktopCategory::media, {u"mp4"_s, u"mov"_s, u"m4v"_s, u"avi"_s, u"mkv"_s, u"mp3"_s,
                                     u"wav"_s, u"m4a"_s, u"aiff"_s, u"flac"_s});
        return extensions;
    }();
    return table;
}

/// Sparse files can claim any size; the sum stops where it can't be told any more.
qint64 sumOf(qint64 bytes, qint64 more) {
    constexpr qint64 most = std::numeric_limits<qint64>::max();
    return more > most - bytes ? most : bytes + more;
}

} // namespace

DesktopMonitor::DesktopMonitor(DesktopFolder &folder)
    : m_folder(folder), m_desktopURL(folder.url()) {}

void DesktopMonitor::sample() {
    if (!m_desktopURL) {
        return;
    }
    const auto entries = m_folder.entries(*m_desktopURL);
    if (!entries) {
        return;
    }
    DesktopSummary summary;
    for (const FolderEntry &entry : *entries) {
        if (entry.isDirectory.value_or(false)) {
            ++summary.counts[DesktopCategory::folders];
            continue;
        }
        const DesktopCategory category = classify(entry.name);
        ++summary.counts[category];
        if (category == DesktopCategory::screenshots) {
            summary.screenshotBytes = sumOf(summary.screenshotBytes, entry.fileSize.value_or(0));
        }
    }
    summary.totalItems = static_cast<qint64>(entries->size());
    summary.available = true;
    m_summary = summary;
}

/// The name's own words come first: a PDF called after a screenshot is one.
DesktopCategory DesktopMonitor::classify(const QString &fileName) {
    const QString name = fileName.toLower();
    if (name.contains(u"screenshot"_s) || name.contains(u"screen shot"_s) ||
        name.contains(u"screen recording"_s) || name.startsWith(u"cleanshot"_s)) {
        return DesktopCategory::screenshots;
    }
    const qsizetype dot = name.lastIndexOf(u'.');
    if (dot <= 0) {
        return DesktopCategory::other;
    }
    return categoriesByExtension().value(name.sliced(dot + 1), DesktopCategory::other);
}

} // namespace zeph
