// SPDX-License-Identifier: MIT
#include "adapters/desktop/ExtensionIcons.h"

#include "adapters/desktop/RunTool.h"

#include <QFile>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const QString tool = u"gnome-extensions"_s;

/// The extensions that draw icons, the most common first.
const QStringList &iconExtensions() {
    static const QStringList extensions{u"ding@rastersoft.com"_s, u"gtk4-ding@smedius.gitlab.com"_s,
                                        u"zorin-desktop-icons@zorinos.com"_s,
                                        u"desktop-icons@csoriano"_s};
    return extensions;
}

QStringList installedOf(const QStringList &dataFolders) {
    QStringList installed;
    if (!isProgramThere(tool)) {
        return installed;
    }
    for (const QString &extension : iconExtensions()) {
        const QString evidence = u"/gnome-shell/extensions/"_s + extension + u"/metadata.json"_s;
        if (std::any_of(dataFolders.begin(), dataFolders.end(),
                        [&](const QString &folder) { return QFile::exists(folder + evidence); })) {
            installed.append(extension);
        }
    }
    return installed;
}

/// Those of `wanted` that are among `known`, in the order of `known`.
QStringList common(const QStringList &known, const QStringList &wanted) {
    QStringList both;
    std::copy_if(known.begin(), known.end(), std::back_inserter(both),
                 [&](const QString &one) { return wanted.contains(one); });
    return both;
}

} // namespace

ExtensionIcons::ExtensionIcons(const QStringList &dataFolders)
    : m_installed(installedOf(dataFolders)) {}

std::optional<IconSetting> ExtensionIcons::iconSetting() const {
    if (!canHideIcons()) {
        return std::nullopt;
    }
    const auto answer = runTool(tool, {u"list"_s, u"--enabled"_s});
    if (!answer || answer->exitCode != 0) {
        return std::nullopt;
    }
    QStringList enabled;
    for (const QString &line : answer->output.split(u'\n')) {
        enabled.append(line.trimmed());
    }
    const QStringList drawing = common(m_installed, enabled);
    return drawing.isEmpty() ? IconSetting{false, {}, IconDrawer::off}
                             : IconSetting{true, drawing.join(u' ')};
}

/// What can't be listed may be switched on: switching off what is off already does no harm.
ShellOutcome ExtensionIcons::hideIcons() {
    const auto now = iconSetting();
    return run(u"disable"_s, now ? now->value.split(u' ', Qt::SkipEmptyParts) : m_installed);
}

ShellOutcome ExtensionIcons::showIcons(const QString &earlier) {
    const QStringList wanted = common(m_installed, earlier.split(u' '));
    const auto now = iconSetting();
    const QStringList drawing = now ? now->value.split(u' ', Qt::SkipEmptyParts) : QStringList();
    if (!drawing.isEmpty() && common(wanted, drawing) != drawing) {
        return ShellOutcome::done;
    }
    return run(u"enable"_s, wanted.isEmpty() ? m_installed.mid(0, 1) : wanted);
}

ShellOutcome ExtensionIcons::relaunch() {
    return canHideIcons() ? ShellOutcome::done : ShellOutcome::unavailable;
}

ShellOutcome ExtensionIcons::run(const QString &command, const QStringList &extensions) const {
    if (!canHideIcons()) {
        return ShellOutcome::unavailable;
    }
    ShellOutcome outcome = ShellOutcome::done;
    for (const QString &extension : extensions) {
        const auto answer = runTool(tool, {command, extension});
        if (!answer || answer->exitCode != 0) {
            outcome = ShellOutcome::refused;
        }
    }
    return outcome;
}

} // namespace zeph
