// SPDX-License-Identifier: MIT
#include "adapters/locale/UserLocale.h"

#include <initializer_list>

namespace zeph {

namespace {

/// "sr_RS.UTF-8@latin" → "sr_Latn_RS"; encodings and other modifiers carry no meaning here.
QByteArray fromEnvironmentForm(QByteArray name) {
    QByteArray modifier;
    if (const qsizetype at = name.indexOf('@'); at >= 0) {
        modifier = name.mid(at + 1);
        name.truncate(at);
    }
    if (const qsizetype dot = name.indexOf('.'); dot >= 0) {
        name.truncate(dot);
    }
    if (name.isEmpty() || name == "C" || name == "POSIX") {
        return "en_001";
    }
    const QByteArray script = modifier == "latin"      ? "_Latn"
                              : modifier == "cyrillic" ? "_Cyrl"
                                                       : QByteArray();
    const qsizetype language = name.indexOf('_');
    return language < 0 ? name + script : name.insert(language, script);
}

} // namespace

QByteArray userLocale(const char *category) {
    for (const char *variable : {"LC_ALL", category, "LANG"}) {
        const QByteArray value = qgetenv(variable);
        if (!value.isEmpty()) {
            return fromEnvironmentForm(value);
        }
    }
    return fromEnvironmentForm({});
}

QByteArray localeOrUsers(const QString &locale, const char *category) {
    return locale.isEmpty() ? userLocale(category) : locale.toUtf8();
}

} // namespace zeph
