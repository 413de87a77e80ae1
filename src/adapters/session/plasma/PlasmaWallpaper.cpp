// SPDX-License-Identifier: MIT
#include "adapters/session/plasma/PlasmaWallpaper.h"

#include "adapters/bus/DBusCalls.h"
#include "adapters/session/plasma/EarlierWallpapers.h"
#include "adapters/session/plasma/PlasmaPackage.h"
#include "base/Background.h"
#include "base/Log.h"
#include "base/PrivateFolder.h"
#include "ports/RunLoop.h"
#include "ports/UserDefaults.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QUrl>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const QString kShellPath = u"/PlasmaShell"_s;
const QString kShellInterface = u"org.kde.PlasmaShell"_s;
const QString kEvaluate = u"evaluateScript"_s;

const QString kActivitiesName = u"org.kde.ActivityManager"_s;
const QString kActivitiesPath = u"/ActivityManager/Activities"_s;
const QString kActivitiesInterface = u"org.kde.ActivityManager.Activities"_s;

// Drawing a desktop anew takes a slow machine some seconds.
constexpr int kAnswerTimeout = 10'000;

// A shell that starts is on the bus before it has desktops; the rests add up to half a minute.
constexpr int kMostTries = 6;
constexpr std::chrono::milliseconds kFirstRest{1000};

// It makes the desktop of a display some time after that came.
constexpr std::chrono::milliseconds kRestAfterChange{2000};

bool showsOurs(const PlasmaDesktop &desktop) {
    return desktop.wallpaper == plasmaPackageId;
}

QString addressOf(const QString &folder) {
    return QUrl::fromLocalFile(folder).toString(QUrl::FullyEncoded);
}

} // namespace

PlasmaWallpaper::PlasmaWallpaper(Surroundings surroundings)
    : m_with(std::move(surroundings)),
      m_isChosen(m_with.defaults.boolean(plasmaWallpaperKey)),
      m_activities(m_with.sessionBus, kActivitiesName, [] {}),
      m_shell(m_with.sessionBus, u"org.kde.plasmashell"_s, [this] { shellChanged(); }) {
    for (const QString &change : {u"ActivityAdded"_s, u"CurrentActivityChanged"_s}) {
        m_activities.follow({{}, kActivitiesPath, kActivitiesInterface, change, {}, u"s"_s},
                            [this](const QDBusMessage &) { lookSoon(); });
    }
}

Subscription PlasmaWallpaper::subscribe(std::function<void()> handler) {
    return m_changes.subscribe(std::move(handler));
}

void PlasmaWallpaper::choose(bool isOurs) {
    if (std::exchange(m_isChosen, isOurs) == isOurs) {
        return;
    }
    m_with.defaults.set(plasmaWallpaperKey, isOurs);
    m_problem = Problem::none;
    m_isReplaced = false;
    m_failures = 0;
    m_changes.send();
    follow();
}

QString PlasmaWallpaper::problem() const {
    switch (m_problem) {
    case Problem::none:
        break;
    case Problem::noShell:
        return u"Plasma's shell does not run"_s;
    case Problem::refused:
        return m_isChosen ? u"Plasma did not take Tavi's own wallpaper"_s
                          : u"Plasma did not take its earlier wallpapers back"_s;
    case Problem::notInstalled:
        return u"Tavi's own wallpaper could not be put where Plasma looks for it"_s;
    case Problem::notWritten:
        return u"Tavi's pictures for Plasma could not be written"_s;
    case Problem::notKept:
        return u"Plasma's earlier wallpapers could not be kept"_s;
    }
    return {};
}

void PlasmaWallpaper::setNeeded(bool isNeeded) {
    if (std::exchange(m_isNeeded, isNeeded) != isNeeded) {
        follow();
    }
}

void PlasmaWallpaper::lookSoon() {
    if (isWanted() && !std::exchange(m_isLookDue, true)) {
        m_with.runLoop.after(kRestAfterChange, m_work.whileAlive([this] {
            m_isLookDue = false;
            follow();
        }));
    }
}

void PlasmaWallpaper::picturesRefused() {
    setProblem(Problem::notWritten);
    follow();
}

void PlasmaWallpaper::withdraw() {
    m_isWithdrawn = true;
    m_changes.send();
    follow();
}

void PlasmaWallpaper::giveBack(std::chrono::milliseconds patience) {
    if (isWanted() && !std::exchange(m_isGivenBack, true)) {
        m_shell.send(kShellPath, kShellInterface, kEvaluate, {returnScript(earlier())});
        waitUntilSent(m_with.sessionBus, patience);
    }
}

void PlasmaWallpaper::shellChanged() {
    ++m_life;
    m_isBusy = false;
    m_failures = 0;
    if (m_shell.isThere() && m_problem == Problem::noShell) {
        setProblem(Problem::none);
    }
    follow();
}

bool PlasmaWallpaper::isToGo() const {
    return (!m_isChosen || m_isNeeded == false || isGivenUp()) &&
           m_with.defaults.contains(earlierWallpapersKey);
}

void PlasmaWallpaper::follow() {
    if (m_isGivenBack) {
        return;
    }
    if (m_isBusy) {
        m_isStale = true;
    } else if (m_shell.isThere()) {
        if (isWanted()) {
            putIn();
        } else if (isToGo()) {
            putBack();
        }
    } else if (m_shell.isSettled() && isWanted()) {
        setProblem(Problem::noShell);
    }
}

/// On a thread of the pool. The folder around the pictures is there before Plasma looks into it.
PlasmaWallpaper::Problem PlasmaWallpaper::prepare(const QString &source, const QString &target,
                                                  const QString &pictures) {
    if (pictures.isEmpty() || !makePrivateFolder(QFileInfo(pictures).path()) ||
        !makePrivateFolder(pictures)) {
        return Problem::notWritten;
    }
    return installPlasmaPackage(source, target) ? Problem::none : Problem::notInstalled;
}

void PlasmaWallpaper::putIn() {
    m_isBusy = true;
    m_with.background.run(
        m_work,
        [source = m_with.source, target = m_with.target, pictures = m_with.pictures] {
            return prepare(source, target, pictures);
        },
        [this, life = m_life](Problem problem) {
            if (life != m_life) {
                return;
            }
            if (problem == Problem::none) {
                runScript(tellDesktopsScript(),
                          [this](const Desktops &desktops) { putInto(desktops); });
            } else {
                finish(problem);
            }
        });
}

void PlasmaWallpaper::putInto(const Desktops &desktops) {
    PlasmaWallpapers kept = earlier();
    for (const PlasmaDesktop &desktop : desktops) {
        const bool isNew =
            !showsOurs(desktop) && kept.try_emplace(desktop.number, desktop.wallpaper).second;
        if (isNew || desktop.isReturned) {
            m_asked.insert(desktop.number);
        }
    }
    // First, since nothing else knows them once they are replaced.
    m_with.defaults.set(earlierWallpapersKey, keptWallpapers(kept));
    if (isAnyAsked(desktops) && !m_with.defaults.isSaved()) {
        finish(Problem::notKept);
        return;
    }
    const QString start = u"%1-%2"_s.arg(QCoreApplication::applicationPid()).arg(++m_starts);
    runScript(putInScript({m_asked.begin(), m_asked.end()},
                          {addressOf(m_with.pictures), addressOf(m_with.kept), start}),
              [this](const Desktops &now) {
                  for (const PlasmaDesktop &desktop : now) {
                      if (showsOurs(desktop)) {
                          m_asked.erase(desktop.number);
                      }
                  }
                  if (!isAnyAsked(now)) {
                      noteShown(now);
                      finish(Problem::none);
                  } else {
                      tryAgain();
                  }
              });
}

/// Not those that have gone meanwhile, as with their activity, and may come back.
bool PlasmaWallpaper::isAnyAsked(const Desktops &desktops) const {
    return std::any_of(desktops.begin(), desktops.end(), [this](const PlasmaDesktop &desktop) {
        return m_asked.contains(desktop.number);
    });
}

void PlasmaWallpaper::noteShown(const Desktops &desktops) {
    const bool isReplaced = std::none_of(desktops.begin(), desktops.end(), showsOurs);
    if (std::exchange(m_isReplaced, isReplaced) != isReplaced) {
        m_changes.send();
    }
}

void PlasmaWallpaper::putBack() {
    m_isBusy = true;
    runScript(putBackScript(earlier()), [this](const Desktops &desktops) {
        if (std::any_of(desktops.begin(), desktops.end(), showsOurs)) {
            tryAgain();
            return;
        }
        m_with.defaults.remove(earlierWallpapersKey);
        m_asked.clear();
        m_isReplaced = false;
        m_with.background.run(
            m_work,
            [target = m_with.target, pictures = QStringList{m_with.pictures, m_with.kept}] {
                removePlasmaPackage(target, pictures);
            },
            [this, life = m_life] {
                if (life == m_life) {
                    finish(Problem::none);
                }
            });
    });
}

/// Hands on what its desktops show, of which a shell that has started up has at least one.
void PlasmaWallpaper::runScript(const QString &script, std::function<void(const Desktops &)> done) {
    m_shell.ask(kShellPath, kShellInterface, kEvaluate, {script}, kAnswerTimeout,
                [this, done = std::move(done)](const QDBusMessage &answer) {
                    const bool isText =
                        answer.type() == QDBusMessage::ReplyMessage && answer.signature() == u"s"_s;
                    const auto desktops =
                        isText ? desktopsIn(answer.arguments().constFirst().toString())
                               : std::nullopt;
                    if (desktops && !desktops->empty()) {
                        done(*desktops);
                    } else {
                        tryAgain();
                    }
                });
}

void PlasmaWallpaper::tryAgain() {
    if (++m_failures >= kMostTries) {
        finish(Problem::refused);
        return;
    }
    m_with.runLoop.after(kFirstRest * (1 << (m_failures - 1)),
                         m_work.whileAlive([this, life = m_life] {
                             if (life == m_life) {
                                 m_isBusy = false;
                                 follow();
                             }
                         }));
}

void PlasmaWallpaper::finish(Problem problem) {
    m_isBusy = false;
    m_failures = 0;
    if (!isGivenUp()) {
        setProblem(problem);
    }
    // Without pictures the desktops get their own wallpapers back.
    if (std::exchange(m_isStale, false) || (problem == Problem::notWritten && isToGo())) {
        follow();
    }
}

void PlasmaWallpaper::setProblem(Problem problem) {
    if (std::exchange(m_problem, problem) == problem) {
        return;
    }
    if (problem != Problem::none) {
        qCInfo(logSystem, "%s", qUtf8Printable(this->problem()));
    }
    m_changes.send();
}

PlasmaWallpapers PlasmaWallpaper::earlier() const {
    return wallpapersIn(m_with.defaults.get<QString>(earlierWallpapersKey).value_or(QString()));
}

} // namespace zeph
