// SPDX-License-Identifier: MIT
#include "adapters/login/AutostartFile.h"

#include <QByteArrayList>

#include <glib.h>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr const char *kGroup = G_KEY_FILE_DESKTOP_GROUP;
constexpr const char *kSwitch = "X-GNOME-Autostart-enabled";
constexpr const char *kOurs = "X-Tavi-Managed";

struct Free {
    void operator()(char *text) const { g_free(text); }
    void operator()(GKeyFile *file) const { g_key_file_unref(file); }
};
using Text = std::unique_ptr<char, Free>;
using KeyFile = std::unique_ptr<GKeyFile, Free>;

KeyFile emptyFile() {
    return KeyFile(g_key_file_new());
}

QString textIn(GKeyFile *file, const char *key) {
    const Text text(g_key_file_get_string(file, kGroup, key, nullptr));
    return QString::fromUtf8(text.get());
}

bool truthIn(GKeyFile *file, const char *key, bool otherwise) {
    GError *error = nullptr;
    const bool value = g_key_file_get_boolean(file, kGroup, key, &error) != FALSE;
    if (error != nullptr) {
        g_error_free(error);
        return otherwise;
    }
    return value;
}

/// Null when the bytes are no entry of an application.
KeyFile entryIn(const QByteArray &bytes) {
    KeyFile file = emptyFile();
    const bool isRead =
        !bytes.isEmpty() &&
        g_key_file_load_from_data(file.get(), bytes.constData(), static_cast<gsize>(bytes.size()),
                                  G_KEY_FILE_NONE, nullptr) != FALSE;
    // A file that only hides another one may say nothing else.
    const bool isEntry = isRead && (textIn(file.get(), "Type") == u"Application"_s ||
                                    truthIn(file.get(), "Hidden", false));
    return isEntry ? std::move(file) : nullptr;
}

QByteArray bytesOf(GKeyFile *file) {
    gsize length = 0;
    const Text text(g_key_file_to_data(file, &length, nullptr));
    return {text.get(), static_cast<qsizetype>(length)};
}

void setText(GKeyFile *file, const char *key, const QString &text) {
    g_key_file_set_string(file, kGroup, key, text.toUtf8().constData());
}

} // namespace

std::optional<AutostartFacts> readAutostart(const QByteArray &bytes) {
    const KeyFile file = entryIn(bytes);
    if (!file) {
        return std::nullopt;
    }
    return AutostartFacts{.isEnabled = !truthIn(file.get(), "Hidden", false) &&
                                       truthIn(file.get(), kSwitch, true),
                          .isOurs = truthIn(file.get(), kOurs, false),
                          .tryExec = textIn(file.get(), "TryExec")};
}

QByteArray writeAutostart(const QString &executable, bool isEnabled) {
    const KeyFile file = emptyFile();
    setText(file.get(), "Type", u"Application"_s);
    setText(file.get(), "Name", u"Tavi"_s);
    setText(file.get(), "Comment", u"A quiet wallpaper that keeps pace with your day"_s);
    setText(file.get(), "Icon", u"com.tavi.Tavi"_s);
    setText(file.get(), "Exec", execLine(executable));
    setText(file.get(), "TryExec", executable);
    setText(file.get(), "Terminal", u"false"_s);
    setText(file.get(), "StartupNotify", u"false"_s);
    if (isEnabled) {
        setText(file.get(), kSwitch, u"true"_s);
    } else {
        setText(file.get(), "Hidden", u"true"_s);
    }
    setText(file.get(), kOurs, u"true"_s);
    return bytesOf(file.get());
}

std::optional<QByteArray> switchAutostart(const QByteArray &bytes, bool isEnabled) {
    if (!entryIn(bytes)) {
        return std::nullopt;
    }
    // By its lines: the library would write all of them anew.
    QByteArrayList lines;
    bool isOfEntry = false;
    for (const QByteArray &line : bytes.split('\n')) {
        const QByteArray text = line.trimmed();
        const QByteArray key = text.first(std::max<qsizetype>(text.indexOf('='), 0)).trimmed();
        if (isOfEntry && key == "Hidden") {
            continue;
        }
        lines << (isOfEntry && isEnabled && key == kSwitch ? key + "=true" : line);
        if (text.startsWith('[')) {
            isOfEntry = text == "[Desktop Entry]";
            if (isOfEntry && !isEnabled) {
                lines << "Hidden=true";
            }
        }
    }
    return lines.join('\n');
}

QString execLine(const QString &executable) {
    QString line = u"\""_s;
    for (const QChar letter : executable) {
        if (u"\"`$\\"_s.contains(letter)) {
            line += u'\\';
        } else if (letter == u'%') {
            line += u'%'; // alone it would stand for files
        }
        line += letter;
    }
    return line + u'"';
}

} // namespace zeph
