// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/bus/BusService.h"
#include "adapters/session/plasma/PlasmaScripts.h"
#include "base/WorkOwner.h"
#include "ports/DesktopWallpaper.h"

#include <chrono>
#include <optional>
#include <set>

namespace zeph {

class Background;
class RunLoop;
class UserDefaults;

/// Whether the user chose our wallpaper in Plasma.
inline const QString plasmaWallpaperKey = QStringLiteral("zeph.plasma.wallpaper");

/// Our wallpaper in Plasma: puts it into all desktops when the user chose it, and what each of them
/// showed before back when not. The choice lies under "zeph.plasma.wallpaper", the earlier
/// wallpapers under "zeph.plasma.earlier". A desktop that showed ours and does not any more was
/// given another wallpaper by the user, and keeps it; where it shows what the end of the last run
/// brought back, ours takes its place again.
class PlasmaWallpaper : public DesktopWallpaper {
public:
    /// What it works with; the objects outlive it.
    struct Surroundings {
        QDBusConnection sessionBus;
        UserDefaults &defaults;
        const Background &background;
        RunLoop &runLoop;
        QString source;   ///< folder of the package that the program brings
        QString target;   ///< folder in which Plasma looks for it
        QString pictures; ///< folder around those of the outputs; empty where there is none
        QString kept;     ///< folder of those that outlive the session
    };

    explicit PlasmaWallpaper(Surroundings surroundings);

    bool isChosen() const override { return m_isChosen; }
    void choose(bool isOurs) override;
    QString problem() const override;
    bool isReplaced() const override { return isWanted() && m_isReplaced; }
    void look() override { follow(); }
    [[nodiscard]] Subscription subscribe(std::function<void()> handler) override;

    /// Whether pictures are shown, as far as is known; also while it is not known yet.
    bool isUsable() const { return m_isChosen && m_problem == Problem::none && !m_isWithdrawn; }

    /// Whether there is anything to show in it now; not at first. Without need the earlier
    /// wallpapers are shown.
    void setNeeded(bool isNeeded);

    /// Displays or activities came or went: desktops that are new get it soon.
    void lookSoon();

    /// The pictures could not be written: it is taken out until it is chosen again.
    void picturesRefused();

    /// The program is gone from this machine: whatever the choice is, nobody will be there to put
    /// the earlier wallpapers back later.
    void withdraw();

    /// The program ends: until its next start Plasma shows the earlier wallpapers. It is asked for
    /// them, which takes no longer than `patience`, and not waited for.
    void giveBack(std::chrono::milliseconds patience);

private:
    enum class Problem { none, noShell, refused, notInstalled, notWritten, notKept };
    using Desktops = std::vector<PlasmaDesktop>;

    static Problem prepare(const QString &source, const QString &target, const QString &pictures);
    bool isWanted() const { return m_isChosen && m_isNeeded == true && !isGivenUp(); }
    bool isGivenUp() const { return m_isWithdrawn || m_problem == Problem::notWritten; }
    bool isToGo() const;
    void shellChanged();
    void follow();
    void putIn();
    void putInto(const Desktops &desktops);
    void putBack();
    bool isAnyAsked(const Desktops &desktops) const;
    void noteShown(const Desktops &desktops);
    void runScript(const QString &script, std::function<void(const Desktops &)> done);
    void tryAgain();
    void finish(Problem problem);
    void setProblem(Problem problem);
    PlasmaWallpapers earlier() const;

    Surroundings m_with;
    bool m_isChosen = false;
    std::optional<bool> m_isNeeded; // absent until it is told
    Problem m_problem = Problem::none;
    bool m_isWithdrawn = false;
    bool m_isReplaced = false;  // by another, in all desktops
    bool m_isGivenBack = false; // and nothing is done any more
    bool m_isBusy = false;
    bool m_isStale = false; // something changed since what is under way began
    bool m_isLookDue = false;
    int m_failures = 0; // in a row
    int m_life = 0;     // of the shell; what was begun in an earlier one is dropped
    int m_starts = 0;
    std::set<int> m_asked; // desktops whose earlier wallpaper is kept, and that have not ours yet
    ChangePublisher m_changes;
    WorkOwner m_work;
    BusService m_activities;
    BusService m_shell; // last, since it calls back
};

} // namespace zeph
