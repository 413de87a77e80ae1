// SPDX-License-Identifier: MIT
#include "adapters/session/wayland/OutputWords.h"

#include "adapters/session/identity/Edid.h"

#include <QDir>
#include <QFile>

#include <optional>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr qint64 kLongestEdid = 32768;

/// Of the display at this connector, unless several cards have one of that name in use.
std::optional<EdidWords> edidWords(const QString &connector, const QString &drmFolder) {
    if (connector.isEmpty() || connector.contains(u'/')) {
        return std::nullopt;
    }
    const QDir folder(drmFolder);
    std::optional<EdidWords> found;
    for (const QString &entry : folder.entryList({u"card*-"_s + connector})) {
        // Wildcards also let through the "card0-eDP-DP-1" of another connector.
        if (entry.section(u'-', 1) != connector) {
            continue;
        }
        QFile file(folder.filePath(entry + u"/edid"_s));
        const EdidWords words =
            file.open(QIODevice::ReadOnly) ? readEdid(file.read(kLongestEdid)) : EdidWords();
        if (words == EdidWords()) {
            continue;
        }
        if (found) {
            return std::nullopt;
        }
        found = words;
    }
    return found;
}

/// What compositors say of a display that told them nothing.
QString told(const QString &word) {
    const QString plain = word.simplified();
    return plain.compare(u"unknown"_s, Qt::CaseInsensitive) == 0 ? QString() : plain;
}

/// Some compositors describe an output as "make model serial (connector)".
QString serialIn(const OutputNames &names) {
    const QString beginning = names.make.simplified() + u' ' + names.model.simplified() + u' ';
    const QString description = names.description.simplified();
    const auto end = description.lastIndexOf(u" ("_s);
    if (names.model.isEmpty() || !description.startsWith(beginning) || end < beginning.size()) {
        return {};
    }
    return told(description.mid(beginning.size(), end - beginning.size()));
}

} // namespace

ScreenFacts outputWords(const OutputNames &names, const QString &drmFolder) {
    if (const auto edid = edidWords(names.connector, drmFolder)) {
        return {edid->manufacturer, edid->model, edid->serialNumber, names.connector};
    }
    return {told(names.make), told(names.model), serialIn(names), names.connector};
}

} // namespace zeph
