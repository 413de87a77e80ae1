// SPDX-License-Identifier: MIT
#include "sensing/DesktopMonitor.h"

#include "base/Background.h"
#include "base/Log.h"
#include "ports/DesktopFolder.h"

#include <QStringView>

#include <algorithm>
#include <array>
#include <limits>
#include <string_view>

namespace zeph {

namespace {

using Word = std::u16string_view;

constexpr std::array<Word, 11> imageExtensions{u"png",  u"jpg",  u"jpeg", u"gif", u"heic", u"heif",
                                               u"webp", u"tiff", u"tif",  u"bmp", u"svg"};
constexpr std::array<Word, 14> documentExtensions{u"pdf",  u"doc",   u"docx", u"txt",     u"md",
                                                  u"rtf",  u"pages", u"key",  u"numbers", u"xls",
                                                  u"xlsx", u"ppt",   u"pptx", u"csv"};
constexpr std::array<Word, 7> archiveExtensions{u"zip", u"dmg", u"rar", u"7z",
                                                u"tar", u"gz",  u"pkg"};
constexpr std::array<Word, 10> mediaExtensions{u"mp4", u"mov", u"m4v", u"avi",  u"mkv",
                                               u"mp3", u"wav", u"m4a", u"aiff", u"flac"};

template <std::size_t size>
bool contains(const std::array<Word, size> &words, Word word) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

/// The name in lower case. The library's conversion looks every letter up, which ten thousand names
/// would feel; it is asked only for what is not ASCII.
QString lowered(const QString &name) {
    QString result(name.size(), Qt::Uninitialized);
    QChar *out = result.data();
    for (const QChar letter : name) {
        const char16_t code = letter.unicode();
        if (code >= 0x80) {
            return name.toLower();
        }
        *out++ = code >= u'A' && code <= u'Z' ? QChar(code + (u'a' - u'A')) : letter;
    }
    return result;
}

/// One search for what the three words begin with: a Desktop can hold many thousand names.
bool namesAScreenshot(Word name) {
    constexpr Word screen = u"screen";
    for (auto at = name.find(screen); at != Word::npos; at = name.find(screen, at + 1)) {
        const Word rest = name.substr(at + screen.size());
        if (rest.starts_with(u"shot") || rest.starts_with(u" shot") ||
            rest.starts_with(u" recording")) {
            return true;
        }
    }
    return name.starts_with(u"cleanshot");
}

DesktopCategory categoryOfExtension(Word extension) {
    if (contains(imageExtensions, extension)) {
        return DesktopCategory::images;
    }
    if (contains(documentExtensions, extension)) {
        return DesktopCategory::documents;
    }
    if (contains(archiveExtensions, extension)) {
        return DesktopCategory::archives;
    }
    return contains(mediaExtensions, extension) ? DesktopCategory::media : DesktopCategory::other;
}

/// Sparse files can claim any size; the sum stops where it can't be told any more.
qint64 sumOf(qint64 bytes, qint64 more) {
    constexpr qint64 most = std::numeric_limits<qint64>::max();
    return more > most - bytes ? most : bytes + more;
}

/// The name's own words come first: a PDF called after a screenshot is one.
DesktopCategory categoryOf(const QString &fileName) {
    const QString text = lowered(fileName);
    const QStringView view(text);
    const Word name(view.utf16(), static_cast<std::size_t>(view.size()));
    if (namesAScreenshot(name)) {
        return DesktopCategory::screenshots;
    }
    const auto dot = name.rfind(u'.');
    const bool hasExtension = dot != Word::npos && dot > 0;
    return hasExtension ? categoryOfExtension(name.substr(dot + 1)) : DesktopCategory::other;
}

void count(const FolderEntry &entry, DesktopSummary &summary) {
    ++summary.totalItems;
    if (entry.isDirectory.value_or(false)) {
        ++summary.counts[DesktopCategory::folders];
        return;
    }
    const DesktopCategory category = categoryOf(entry.name);
    ++summary.counts[category];
    if (category == DesktopCategory::screenshots) {
        summary.screenshotBytes = sumOf(summary.screenshotBytes, entry.fileSize.value_or(0));
    }
}

/// Blocks; absent when the folder can't be read.
std::optional<DesktopSummary> censusOf(const DesktopFolder &folder, const QByteArray &url) {
    DesktopSummary summary;
    summary.available = true;
    const bool isWhole =
        folder.visitEntries(url, [&summary](const FolderEntry &entry) { count(entry, summary); });
    return isWhole ? std::optional(summary) : std::nullopt;
}

} // namespace

DesktopMonitor::DesktopMonitor(const DesktopFolder &folder, const Background &background)
    : m_folder(folder), m_background(background), m_desktopURL(folder.url()) {}

void DesktopMonitor::sample() {
    if (!m_desktopURL || m_census.isBusy()) {
        return;
    }
    m_background.run(
        m_census, [&folder = m_folder, url = *m_desktopURL] { return censusOf(folder, url); },
        [this](const std::optional<DesktopSummary> &summary) {
            if (summary) {
                m_summary = *summary;
                m_renewals.send();
            } else {
                qCInfo(logSensing, "the Desktop folder can't be read");
            }
        });
}

} // namespace zeph
