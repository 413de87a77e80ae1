// SPDX-License-Identifier: MIT
#include "adapters/apps/ProcessWords.h"

#include "adapters/apps/RunningProgram.h"
#include "adapters/storage/SmallFile.h"

#include <QFile>

#include <array>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr qint64 kMostWords = 8192;

constexpr QByteArrayView kName = "name=";

// Stands between a sandbox and the buses outside of it.
const QString kBusProxy = u"xdg-dbus-proxy"_s;

QByteArray contentOf(qint64 process, const QString &name) {
    QFile file(u"/proc/%1/%2"_s.arg(process).arg(name));
    return file.open(QIODevice::ReadOnly) ? file.read(kMostWords) : QByteArray();
}

bool isInterpreter(const QString &program) {
    const std::array beginnings{u"python"_s, u"gjs"_s, u"perl"_s, u"ruby"_s, u"node"_s, u"bash"_s};
    for (const QString &beginning : beginnings) {
        if (program.startsWith(beginning)) {
            return true;
        }
    }
    return program == u"sh" || program == u"dash";
}

/// Without folder and without an ending such as ".py".
QString scriptIn(const QStringList &arguments) {
    for (qsizetype i = 1; i < arguments.size(); ++i) {
        const QString &argument = arguments[i];
        if (!argument.isEmpty() && !argument.startsWith(u'-')) {
            const QString name = argument.sliced(argument.lastIndexOf(u'/') + 1);
            const qsizetype ending = name.lastIndexOf(u'.');
            return ending > 0 && name.size() - ending <= 4 ? name.first(ending) : name;
        }
    }
    return {};
}

/// systemd writes what a name of a unit must not hold as "\x2d".
QString unescaped(const QByteArray &text) {
    QByteArray result;
    for (qsizetype i = 0; i < text.size(); ++i) {
        bool isNumber = false;
        const int letter = text.mid(i + 2, 2).toInt(&isNumber, 16);
        if (isNumber && letter > 0 && text.mid(i, 2) == "\\x" && i + 4 <= text.size()) {
            result.append(static_cast<char>(letter));
            i += 3;
        } else {
            result.append(text[i]);
        }
    }
    return QString::fromUtf8(result);
}

/// Of "…/app-gnome-org.example.Editor-4711.scope" for the process 4711.
QString desktopFileIn(const ProcessWords &words) {
    QByteArray unit = words.groups.trimmed();
    unit = unit.sliced(unit.lastIndexOf('/') + 1);
    const QByteArray beginning = "app-";
    const QByteArray ending = '-' + QByteArray::number(words.number) + ".scope";
    if (!unit.startsWith(beginning) || !unit.endsWith(ending) ||
        unit.size() < beginning.size() + ending.size()) {
        return {};
    }
    unit = unit.sliced(beginning.size()).chopped(ending.size());
    return unescaped(unit.sliced(unit.lastIndexOf('-') + 1));
}

/// Of a file with "name=…" in its group "[Application]".
QString applicationOfSandbox(const QByteArray &info) {
    bool isInGroup = false;
    for (const QByteArray &raw : info.split('\n')) {
        const QByteArray line = raw.trimmed();
        if (line.startsWith('[')) {
            isInGroup = line == "[Application]";
        } else if (isInGroup && line.startsWith(kName)) {
            return QString::fromUtf8(line.sliced(kName.size()).trimmed());
        }
    }
    return {};
}

} // namespace

ProcessWords wordsOfProcess(qint64 process) {
    ProcessWords words{process, programOfProcess(process), {}, contentOf(process, u"cgroup"_s)};
    for (const QByteArray &argument : contentOf(process, u"cmdline"_s).split('\0')) {
        words.arguments.append(QString::fromLocal8Bit(argument));
    }
    words.sandbox =
        readSmallFile("/proc/" + QByteArray::number(process) + "/root/.flatpak-info", kMostWords)
            .value_or(QByteArray());
    return words;
}

ApplicationHints hintsIn(const ProcessWords &words) {
    ApplicationHints hints;
    hints.desktopFile = applicationOfSandbox(words.sandbox);
    if (!hints.desktopFile.isEmpty()) {
        hints.windowClass = hints.desktopFile; // its name where it has no entry
        return hints;
    }
    if (words.program == kBusProxy) {
        return hints;
    }
    const QString script = isInterpreter(words.program) ? scriptIn(words.arguments) : QString();
    hints.program = script.isEmpty() ? words.program : script;
    hints.desktopFile = desktopFileIn(words);
    return hints;
}

} // namespace zeph
