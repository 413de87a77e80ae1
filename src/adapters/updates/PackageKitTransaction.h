// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QObject>

#include <functional>
#include <memory>
#include <vector>

class QDBusMessage;

namespace zeph {

class BusService;

/// What is asked of the package service.
struct PackageQuestion {
    QString method;
    QVariantList arguments;
};

/// A package that the service told of, and what it is to it: the service's own number.
struct ToldPackage {
    uint info = 0;
    QString id;

    bool operator==(const ToldPackage &) const = default;
};

/// How a question to the package service ended.
struct PackageOutcome {
    enum class Kind {
        done,
        cancelled,
        refused, ///< by the user, or by what the system allows the user
        absent,  ///< there is no such service
        failed,
    };

    Kind kind = Kind::failed;
    QString problem = {}; ///< one sentence, of `failed`
    uint code = 0;        ///< the service's own, of `failed`; 0 without one
    std::vector<ToldPackage> packages = {};
};

/// One transaction of PackageKit, from its making to its end. Starts the service when it is
/// installed and not running. Main thread only; nothing waits.
class PackageKitTransaction {
public:
    using Progress = std::function<void(int percent)>;
    using Finished = std::function<void(const PackageOutcome &)>;

    /// `progress` is told -1 while it is not known how far it is. `finished` runs once, in a later
    /// turn of the loop, and may end the transaction. A `systemBus` that isn't connected is one
    /// without the service.
    PackageKitTransaction(QDBusConnection systemBus, PackageQuestion question, Progress progress,
                          Finished finished);
    ~PackageKitTransaction();
    PackageKitTransaction(const PackageKitTransaction &) = delete;
    PackageKitTransaction &operator=(const PackageKitTransaction &) = delete;

    /// Asks the service to stop, which it may refuse; the end is told as any other.
    void cancel();

private:
    void create();
    void haveTransaction(const QDBusMessage &answer);
    void ownerChanged();
    void follow();
    void ask();
    void propertiesChanged(const QDBusMessage &signal);
    void ended(uint exit);
    void finish(PackageOutcome outcome);
    void failCall(const QDBusMessage &error);

    QDBusConnection m_bus;
    PackageQuestion m_question;
    Progress m_progress;
    Finished m_finished;
    QString m_path; // of the transaction
    std::vector<ToldPackage> m_packages;
    uint m_errorCode = 0;
    QString m_errorDetails;
    bool m_isCancelled = false;
    bool m_isFinished = false;
    std::unique_ptr<BusService> m_service; // once it made the transaction
    QObject m_context;                     // its end drops the calls under way
};

} // namespace zeph
