// SPDX-License-Identifier: MIT
#include "platform/linux/DesktopEntryParser.h"

#include <QByteArrayView>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr qsizetype kLongestText = 256;

struct Line {
    QByteArrayView key;
    QByteArrayView value;
};

// Takes the next line off the front of `rest`.
QByteArrayView takeLine(QByteArrayView &rest) {
    const qsizetype end = rest.indexOf('\n');
    const QByteArrayView line = end < 0 ? rest : rest.first(end);
    rest = end < 0 ? QByteArrayView() : rest.sliced(end + 1);
    return line.trimmed();
}

Line splitLine(QByteArrayView line) {
    const qsizetype equals = line.indexOf('=');
    if (equals <= 0) {
        return {};
    }
    return {line.first(equals).trimmed(), line.sliced(equals + 1).trimmed()};
}

char unescaped(char letter) {
    switch (letter) {
    case 's':
        return ' ';
    case 'n':
        return '\n';
    case 't':
        return '\t';
    case 'r':
        return '\r';
    default:
        return letter;
    }
}

QByteArray withoutEscapes(QByteArrayView value) {
    QByteArray plain;
    plain.reserve(value.size());
    for (qsizetype i = 0; i < value.size(); ++i) {
        if (value[i] == '\\' && i + 1 < value.size()) {
            plain.append(unescaped(value[++i]));
        } else {
            plain.append(value[i]);
        }
    }
    return plain;
}

// A text to be shown or compared: one line of bounded length.
QString text(QByteArrayView value) {
    return QString::fromUtf8(withoutEscapes(value.first(std::min(value.size(), 4 * kLongestText))))
        .simplified()
        .left(kLongestText);
}

// "de_DE" of "Name[de_DE]"; empty for a key without a locale.
QByteArrayView localeOf(QByteArrayView key) {
    const qsizetype open = key.indexOf('[');
    return open >= 0 && key.endsWith(']') ? key.sliced(open + 1, key.size() - open - 2)
                                          : QByteArrayView();
}

// The words of a command line, quotes taken off.
QStringList words(const QString &command) {
    QStringList found;
    QString word;
    bool quoted = false;
    for (const QChar c : command) {
        if (c == u'"') {
            quoted = !quoted;
        } else if (c == u' ' && !quoted) {
            found.append(word);
            word.clear();
        } else {
            word.append(c);
        }
    }
    found.append(word);
    found.removeAll(QString());
    return found;
}

QString fileName(const QString &path) {
    return path.sliced(path.lastIndexOf(u'/') + 1);
}

// "env A=b program" starts program.
QString programOf(const QString &command) {
    QStringList rest = words(command);
    if (!rest.isEmpty() && fileName(rest.first()) == u"env") {
        rest.removeFirst();
        while (!rest.isEmpty() && (rest.first().contains(u'=') || rest.first().startsWith(u'-'))) {
            rest.removeFirst();
        }
    }
    return rest.isEmpty() ? QString() : fileName(rest.first());
}

// Gathers the keys of the one group that matters.
class Reader {
public:
    explicit Reader(const QStringList &locales) : m_locales(locales) {
        m_bestName = m_locales.size() + 1;
    }

    void take(const Line &line) {
        if (line.key.startsWith("Name") && (line.key.size() == 4 || line.key[4] == '[')) {
            takeName(line);
        } else if (line.key == "Type") {
            m_isApplication = line.value == "Application";
        } else if (line.key == "StartupWMClass") {
            m_entry.startupWmClass = text(line.value);
        } else if (line.key == "Exec") {
            m_entry.program = programOf(text(line.value));
        } else if (line.key == "Hidden") {
            m_entry.isHidden = line.value == "true";
        } else if (line.key == "NoDisplay") {
            m_entry.isListed = line.value != "true";
        }
    }

    std::optional<DesktopEntry> entry() const {
        const bool isWhole = m_isApplication && !m_entry.name.isEmpty();
        return isWhole || m_entry.isHidden ? std::optional(m_entry) : std::nullopt;
    }

private:
    void takeName(const Line &line) {
        const QByteArrayView locale = localeOf(line.key);
        qsizetype rank = m_locales.size();
        if (line.key.size() > 4) {
            rank = m_locales.indexOf(QString::fromUtf8(locale));
        }
        if (rank >= 0 && rank < m_bestName) {
            m_bestName = rank;
            m_entry.name = text(line.value);
        }
    }

    const QStringList &m_locales;
    qsizetype m_bestName; // index into the locales; the untranslated name comes after them
    bool m_isApplication = false;
    DesktopEntry m_entry;
};

} // namespace

QStringList desktopEntryLocales(const QString &locale) {
    const QString modifier = locale.contains(u'@') ? u"@"_s + locale.section(u'@', 1) : QString();
    const QString region = locale.section(u'@', 0, 0).section(u'.', 0, 0);
    const QString language = region.section(u'_', 0, 0);
    if (language.isEmpty() || language == u"C" || language == u"POSIX") {
        return {};
    }
    QStringList locales{region + modifier, region, language + modifier, language};
    locales.removeDuplicates();
    return locales;
}

std::optional<DesktopEntry> parseDesktopEntry(const QByteArray &bytes, const QStringList &locales) {
    Reader reader(locales);
    bool inGroup = false;
    QByteArrayView rest(bytes);
    while (!rest.isEmpty()) {
        const QByteArrayView line = takeLine(rest);
        if (line.startsWith('[')) {
            if (inGroup) {
                break; // the actions of the application follow, with names of their own
            }
            inGroup = line == "[Desktop Entry]";
        } else if (inGroup && !line.startsWith('#')) {
            reader.take(splitLine(line));
        }
    }
    return reader.entry();
}

} // namespace zeph
