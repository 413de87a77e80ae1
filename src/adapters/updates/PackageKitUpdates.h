// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/updates/PackageId.h"
#include "adapters/updates/PackageKitTransaction.h"
#include "ports/UpdateFramework.h"

#include <QObject>

#include <memory>

namespace zeph {

/// Newer versions of the program by the system's packages. The service is asked nothing before the
/// user asks, and nothing at all for a program that no package can own.
class PackageKitUpdates : public UpdateFramework {
public:
    /// `executable` is the running program, `version` its version; one that `isSandboxed` is of no
    /// package.
    PackageKitUpdates(QDBusConnection systemBus, QString executable, QString version,
                      bool isSandboxed);
    ~PackageKitUpdates() override;

    const UpdateStatus &status() const override { return m_status; }
    [[nodiscard]] Subscription subscribe(std::function<void()> handler) override;
    void checkForUpdates() override;
    void install() override;
    void cancel() override;

private:
    using Take = void (PackageKitUpdates::*)(const PackageOutcome &);

    void ask(PackageQuestion question, Take take, PackageKitTransaction::Progress progress);
    void giveUp();
    void findOwner();
    void haveOwner(const PackageOutcome &outcome);
    void haveNamesake(const PackageOutcome &outcome);
    void refresh();
    void haveFreshLists(const PackageOutcome &outcome);
    void haveUpdates(const PackageOutcome &outcome);
    void haveTrial(const PackageOutcome &outcome);
    void haveInstalled(const PackageOutcome &outcome);

    void setCheckProgress(int percent, int from, int to);
    void setInstallProgress(int percent);
    void endCheck(const PackageOutcome &outcome);
    void endInstall(const PackageOutcome &outcome);
    void set(const UpdateStatus &status);

    QDBusConnection m_bus;
    QString m_executable;
    QString m_version; // of what runs; another one may be installed by now
    bool m_isSandboxed;
    UpdateStatus m_status;
    PackageId m_installed;
    bool m_isOwner = false; // that one has the program's file
    QString m_update;       // the newer package, as the service names it
    ChangePublisher m_changes;
    std::unique_ptr<PackageKitTransaction> m_transaction; // the last one
    bool m_isToStop = false;                              // the installation under way
    quint64 m_search = 0; // counts those that were given up, so that they are not heard any more
    QObject m_context;    // takes what is given up with it
};

/// Whether a file there can belong to a package of the system.
bool canBelongToPackage(const QString &path);

} // namespace zeph
