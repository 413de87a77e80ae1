// SPDX-License-Identifier: MIT
#include "adapters/apps/DesktopEntry.h"

#include <QStringList>

#include <glib.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr qsizetype kLongestText = 256;

using KeyFile = std::unique_ptr<GKeyFile, decltype(&g_key_file_unref)>;
using Text = std::unique_ptr<char, decltype(&g_free)>;

/// Takes over `value`, null when there is none; one line of bounded length.
QString takeText(char *value) {
    const Text owned(value, &g_free);
    return QString::fromUtf8(value).simplified().left(kLongestText);
}

QString textOf(GKeyFile *file, const char *key) {
    return takeText(g_key_file_get_string(file, G_KEY_FILE_DESKTOP_GROUP, key, nullptr));
}

bool isTrue(GKeyFile *file, const char *key) {
    return g_key_file_get_boolean(file, G_KEY_FILE_DESKTOP_GROUP, key, nullptr) != FALSE;
}

QString fileName(const QString &path) {
    return path.sliced(path.lastIndexOf(u'/') + 1);
}

/// The program that a command line starts: with "env A=b program", that program.
QString programOf(GKeyFile *file) {
    const Text command(
        g_key_file_get_string(file, G_KEY_FILE_DESKTOP_GROUP, G_KEY_FILE_DESKTOP_KEY_EXEC, nullptr),
        &g_free);
    char **words = nullptr;
    if (!command || g_shell_parse_argv(command.get(), nullptr, &words, nullptr) == FALSE) {
        return {};
    }
    const std::unique_ptr<char *, decltype(&g_strfreev)> owned(words, &g_strfreev);
    if (fileName(QString::fromUtf8(*words)) == u"env") {
        ++words;
        while (*words != nullptr && (**words == '-' || QByteArrayView(*words).contains('='))) {
            ++words;
        }
    }
    return fileName(QString::fromUtf8(*words)).left(kLongestText);
}

} // namespace

std::optional<DesktopEntry> parseDesktopEntry(const QByteArray &bytes, const QString &locale) {
    const KeyFile file(g_key_file_new(), &g_key_file_unref);
    const auto size = static_cast<gsize>(bytes.size());
    if (g_key_file_load_from_data(file.get(), bytes.constData(), size, G_KEY_FILE_KEEP_TRANSLATIONS,
                                  nullptr) == FALSE) {
        return std::nullopt;
    }
    const DesktopEntry entry{takeText(g_key_file_get_locale_string(
                                 file.get(), G_KEY_FILE_DESKTOP_GROUP, G_KEY_FILE_DESKTOP_KEY_NAME,
                                 locale.toUtf8().constData(), nullptr)),
                             textOf(file.get(), G_KEY_FILE_DESKTOP_KEY_STARTUP_WM_CLASS),
                             programOf(file.get()),
                             isTrue(file.get(), G_KEY_FILE_DESKTOP_KEY_HIDDEN),
                             !isTrue(file.get(), G_KEY_FILE_DESKTOP_KEY_NO_DISPLAY)};
    const bool isApplication = textOf(file.get(), G_KEY_FILE_DESKTOP_KEY_TYPE) ==
                               QLatin1String(G_KEY_FILE_DESKTOP_TYPE_APPLICATION);
    const bool isWhole = isApplication && !entry.name.isEmpty();
    return isWhole || entry.isHidden ? std::optional(entry) : std::nullopt;
}

} // namespace zeph
