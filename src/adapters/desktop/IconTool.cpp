// SPDX-License-Identifier: MIT
#include "adapters/desktop/IconTool.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

IconTool settingsTool(const QString &desktopProgram, const QString &schema) {
    const QString key = u"show-desktop-icons"_s;
    return {.desktopProgram = desktopProgram,
            .program = u"gsettings"_s,
            .read = {u"get"_s, schema, key},
            .hiddenAnswer = u"false"_s,
            .hide = {u"set"_s, schema, key, u"false"_s},
            .show = {u"set"_s, schema, key, u"true"_s}};
}

/// Icons of files are the second style, no icons the one before the first; the property is absent
/// until somebody chooses one.
IconTool xfceTool() {
    const QStringList property{u"--channel"_s, u"xfce4-desktop"_s, u"--property"_s,
                               u"/desktop-icons/style"_s};
    const auto setting = [&](const QString &style) {
        return property + QStringList{u"--create"_s, u"--type"_s, u"int"_s, u"--set"_s, style};
    };
    return {.desktopProgram = u"xfdesktop"_s,
            .program = u"xfconf-query"_s,
            .read = property,
            .hiddenAnswer = u"0"_s,
            .hide = setting(u"0"_s),
            .show = setting(u"2"_s)};
}

} // namespace

std::optional<IconTool> iconToolFor(const QString &currentDesktop) {
    for (const QString &entry : currentDesktop.split(u':')) {
        const QString desktop = entry.trimmed().toLower();
        if (desktop == u"xfce"_s) {
            return xfceTool();
        }
        if (desktop == u"x-cinnamon"_s || desktop == u"cinnamon"_s) {
            return settingsTool(u"nemo-desktop"_s, u"org.nemo.desktop"_s);
        }
        if (desktop == u"mate"_s) {
            return settingsTool(u"caja"_s, u"org.mate.background"_s);
        }
    }
    return std::nullopt;
}

} // namespace zeph
