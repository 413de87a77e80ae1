// SPDX-License-Identifier: MIT
#include "app/Restoration.h"

#include "base/Background.h"
#include "host/DesktopIconsManager.h"
#include "ports/DesktopShell.h"
#include "ports/UserDefaults.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// What went wrong; empty when nothing did.
QStringList problemsOf(const Restoration &restoration) {
    QStringList problems;
    if (restoration.wallpapers == Restored::refused) {
        problems.append(u"Plasma did not take its earlier wallpapers back"_s);
    } else if (restoration.wallpapers == Restored::unreachable) {
        problems.append(
            u"Plasma's shell does not run, and would get its earlier wallpapers back"_s);
    }
    if (restoration.icons == Restored::refused) {
        problems.append(u"the desktop did not show its icons again"_s);
    } else if (restoration.icons == Restored::unreachable) {
        problems.append(u"nobody is there who would show the desktop's icons again"_s);
    }
    if (restoration.fileManager == Restored::refused) {
        problems.append(u"Nemo did not take its earlier settings back"_s);
    } else if (restoration.fileManager == Restored::unreachable) {
        problems.append(u"nobody is there who would take Nemo's earlier settings back"_s);
    }
    if (restoration.wallpapers == Restored::notSaved || restoration.icons == Restored::notSaved ||
        restoration.fileManager == Restored::notSaved) {
        problems.append(u"its settings could not be written, and tell as before of what is back"_s);
    }
    return problems;
}

QString whatIsBack(bool isPictureBack, bool areIconsBack) {
    if (isPictureBack && areIconsBack) {
        return u"its earlier picture and its icons"_s;
    }
    return isPictureBack ? u"its earlier picture"_s : u"its icons"_s;
}

} // namespace

namespace {

RestorationWords wordsOfThisDesktop(const Restoration &restoration) {
    const auto failed = [](const QString &text) {
        return RestorationWords{u"tavi: "_s + text, true};
    };
    if (restoration.isRunning) {
        return failed(u"it is running, and puts the earlier picture back when it ends"_s);
    }
    const QStringList problems = problemsOf(restoration);
    if (!problems.isEmpty()) {
        return failed(problems.join(u"; "_s));
    }
    const bool isPictureBack =
        restoration.picture == Restored::done || restoration.wallpapers == Restored::done;
    const bool areIconsBack = restoration.icons == Restored::done;
    if (isPictureBack || areIconsBack) {
        return {u"tavi: the desktop has %1 back"_s.arg(whatIsBack(isPictureBack, areIconsBack))};
    }
    if (restoration.fileManager == Restored::done) {
        return {u"tavi: Nemo has its earlier settings back"_s};
    }
    if (restoration.picture == Restored::unreachable) {
        return failed(u"there is no X display to put a picture back on"_s);
    }
    return {u"tavi: there is no earlier picture to put back"_s};
}

} // namespace

RestorationWords restorationWords(const Restoration &restoration) {
    RestorationWords words = wordsOfThisDesktop(restoration);
    if (!restoration.isRunning && restoration.icons == Restored::elsewhere) {
        words.line += u"; icons are still hidden on another desktop, where this can be run too"_s;
    }
    return words;
}

Restored restoreIcons(DesktopShell &shell, UserDefaults &defaults) {
    const auto now = [](const std::function<void()> &action) { action(); };
    const Background background(now, now);
    DesktopIconsManager manager(shell, defaults, background);
    if (!manager.keepsEarlier()) {
        const Restored kept = manager.canHide() ? Restored::elsewhere : Restored::unreachable;
        return manager.keepsAny() ? kept : Restored::nothingKept;
    }
    if (!manager.canHide()) {
        return Restored::unreachable;
    }
    manager.applyHidden(false);
    if (!manager.keepsEarlier()) {
        return defaults.isSaved() ? Restored::done : Restored::notSaved;
    }
    const auto setting = shell.iconSetting();
    return setting && setting->drawer == IconDrawer::there ? Restored::refused
                                                           : Restored::unreachable;
}

} // namespace zeph
