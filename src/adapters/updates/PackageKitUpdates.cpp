// SPDX-License-Identifier: MIT
#include "adapters/updates/PackageKitUpdates.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

using Kind = PackageOutcome::Kind;
using Phase = UpdateStatus::Phase;

// The service's own numbers, each as the bit that it stands for.
constexpr quint64 anyPackage = 1U << 1U;
constexpr quint64 installedPackage = 1U << 2U;
constexpr quint64 onlyTrusted = 1U << 1U;
constexpr quint64 onTrial = 1U << 2U;

// What a package is to it.
constexpr uint infoBlocked = 9;
constexpr uint infoRemoving = 13;

constexpr uint errorNotSupported = 3;

const QString ownName = u"tavi"_s;

// Getting the lists takes most of the time.
constexpr int listsShare = 90;
constexpr int whole = 100;

std::optional<PackageId> firstIn(const PackageOutcome &outcome) {
    for (const ToldPackage &package : outcome.packages) {
        if (auto parsed = parsePackageId(package.id)) {
            return parsed;
        }
    }
    return std::nullopt;
}

} // namespace

PackageKitUpdates::PackageKitUpdates(QDBusConnection systemBus, QString executable, QString version,
                                     bool isSandboxed)
    : m_bus(std::move(systemBus)),
      m_executable(std::move(executable)),
      m_version(std::move(version)),
      m_isSandboxed(isSandboxed) {}

PackageKitUpdates::~PackageKitUpdates() = default;

Subscription PackageKitUpdates::subscribe(std::function<void()> handler) {
    return m_changes.subscribe(std::move(handler));
}

void PackageKitUpdates::checkForUpdates() {
    if (m_status.phase == Phase::checking || m_status.phase == Phase::installing) {
        return;
    }
    if (m_isSandboxed) {
        set({.phase = Phase::sandboxed});
        return;
    }
    if (!canBelongToPackage(m_executable)) {
        set({.phase = Phase::notPackaged});
        return;
    }
    m_update.clear();
    findOwner();
    set({.phase = Phase::checking});
}

void PackageKitUpdates::install() {
    if (m_update.isEmpty() ||
        (m_status.phase != Phase::available && m_status.phase != Phase::refused)) {
        return;
    }
    m_isToStop = false;
    ask({u"UpdatePackages"_s, {onlyTrusted | onTrial, QStringList{m_update}}},
        &PackageKitUpdates::haveTrial, [](int) {});
    set({.phase = Phase::installing, .version = m_status.version});
}

void PackageKitUpdates::cancel() {
    if (m_status.phase == Phase::checking) {
        giveUp();
        set({});
    } else if (m_status.phase == Phase::installing) {
        m_isToStop = true;
        m_transaction->cancel();
    }
}

void PackageKitUpdates::ask(PackageQuestion question, Take take,
                            PackageKitTransaction::Progress progress) {
    m_transaction = std::make_unique<PackageKitTransaction>(
        m_bus, std::move(question),
        [this, search = m_search, progress = std::move(progress)](int percent) {
            if (search == m_search) {
                progress(percent);
            }
        },
        [this, search = m_search, take](const PackageOutcome &outcome) {
            if (search == m_search) {
                (this->*take)(outcome);
            }
        });
}

/// The transaction itself, which may be the caller, ends a little later.
void PackageKitUpdates::giveUp() {
    ++m_search;
    m_transaction->cancel();
    QMetaObject::invokeMethod(
        &m_context,
        [ended = std::shared_ptr<PackageKitTransaction>(std::move(m_transaction))]() mutable {
            ended.reset();
        },
        Qt::QueuedConnection);
}

void PackageKitUpdates::findOwner() {
    ask({u"SearchFiles"_s, {installedPackage, QStringList{m_executable}}},
        &PackageKitUpdates::haveOwner, [](int) {});
}

void PackageKitUpdates::haveOwner(const PackageOutcome &outcome) {
    const bool canSearch = outcome.code != errorNotSupported;
    if (outcome.kind != Kind::done && canSearch) {
        endCheck(outcome);
    } else if (const auto owner = firstIn(outcome)) {
        m_installed = *owner;
        m_isOwner = true;
        refresh();
    } else {
        ask({u"Resolve"_s, {installedPackage, QStringList{ownName}}},
            &PackageKitUpdates::haveNamesake, [](int) {});
    }
}

void PackageKitUpdates::haveNamesake(const PackageOutcome &outcome) {
    const auto namesake = firstIn(outcome);
    if (outcome.kind != Kind::done) {
        endCheck(outcome);
    } else if (namesake) {
        m_installed = *namesake;
        m_isOwner = false;
        refresh();
    } else {
        set({.phase = Phase::notPackaged});
    }
}

void PackageKitUpdates::refresh() {
    constexpr bool evenIfFresh = false;
    ask({u"RefreshCache"_s, {evenIfFresh}}, &PackageKitUpdates::haveFreshLists,
        [this](int percent) { setCheckProgress(percent, 0, listsShare); });
}

/// Without fresh lists nobody knows whether there is something newer.
void PackageKitUpdates::haveFreshLists(const PackageOutcome &outcome) {
    if (outcome.kind != Kind::done) {
        endCheck(outcome);
        return;
    }
    ask({u"GetUpdates"_s, {anyPackage}}, &PackageKitUpdates::haveUpdates,
        [this](int percent) { setCheckProgress(percent, listsShare, whole); });
}

void PackageKitUpdates::haveUpdates(const PackageOutcome &outcome) {
    if (outcome.kind != Kind::done) {
        endCheck(outcome);
        return;
    }
    for (const ToldPackage &package : outcome.packages) {
        const auto newer = parsePackageId(package.id);
        if (!newer || newer->name != m_installed.name ||
            newer->architecture != m_installed.architecture ||
            newer->version == m_installed.version) {
            continue;
        }
        const QString version = newerVersionName(newer->version, m_installed.version);
        if (package.info == infoBlocked) {
            set({.phase = Phase::failed,
                 .problem = u"Version %1 is there, but your system holds it back."_s.arg(version)});
        } else {
            m_update = package.id;
            set({.phase = Phase::available, .version = version});
        }
        return;
    }
    if (!m_isOwner || holdsVersion(m_installed.version, m_version)) {
        set({.phase = Phase::upToDate});
    } else {
        set({.phase = Phase::installed, .version = makersVersion(m_installed.version)});
    }
}

/// What the installation would do to other software is known before anything is done.
void PackageKitUpdates::haveTrial(const PackageOutcome &outcome) {
    const bool removesOthers =
        std::any_of(outcome.packages.begin(), outcome.packages.end(),
                    [](const ToldPackage &package) { return package.info == infoRemoving; });
    if (outcome.kind != Kind::done || m_isToStop) {
        endInstall(outcome); // a trial may succeed although it was to stop
    } else if (removesOthers) {
        set({.phase = Phase::failed,
             .problem = u"Version %1 would remove other software, so it is left to your system's "
                        u"own software program."_s.arg(m_status.version)});
    } else {
        ask({u"UpdatePackages"_s, {onlyTrusted, QStringList{m_update}}},
            &PackageKitUpdates::haveInstalled,
            [this](int percent) { setInstallProgress(percent); });
    }
}

void PackageKitUpdates::haveInstalled(const PackageOutcome &outcome) {
    if (outcome.kind == Kind::done) {
        set({.phase = Phase::installed, .version = m_status.version});
    } else {
        endInstall(outcome);
    }
}

void PackageKitUpdates::setCheckProgress(int percent, int from, int to) {
    set({.phase = Phase::checking,
         .progress = percent < 0 ? -1 : from + percent * (to - from) / whole});
}

void PackageKitUpdates::setInstallProgress(int percent) {
    set({.phase = Phase::installing, .version = m_status.version, .progress = percent});
}

void PackageKitUpdates::endCheck(const PackageOutcome &outcome) {
    switch (outcome.kind) {
    case Kind::done:
    case Kind::cancelled:
        set({});
        break;
    case Kind::refused:
        set({.phase = Phase::failed,
             .problem = u"Your system did not allow a look for newer versions."_s});
        break;
    case Kind::absent:
        set({.phase = Phase::noService});
        break;
    case Kind::failed:
        set({.phase = Phase::failed, .problem = outcome.problem});
        break;
    }
}

void PackageKitUpdates::endInstall(const PackageOutcome &outcome) {
    const QString version = m_status.version;
    switch (outcome.kind) {
    case Kind::done:
    case Kind::cancelled:
        set({.phase = Phase::available, .version = version});
        break;
    case Kind::refused:
        set({.phase = Phase::refused, .version = version});
        break;
    case Kind::absent:
        set({.phase = Phase::noService});
        break;
    case Kind::failed:
        set({.phase = Phase::failed, .problem = outcome.problem});
        break;
    }
}

void PackageKitUpdates::set(const UpdateStatus &status) {
    if (std::exchange(m_status, status) != status) {
        m_changes.send();
    }
}

bool canBelongToPackage(const QString &path) {
    const bool isOfTheSystem = path.startsWith(u"/usr/"_s) && !path.startsWith(u"/usr/local/"_s);
    return isOfTheSystem || path.startsWith(u"/opt/"_s);
}

} // namespace zeph
