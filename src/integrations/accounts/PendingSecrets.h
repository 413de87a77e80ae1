// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QJsonObject>
#include <QString>
#include <QUuid>

#include <functional>
#include <mutex>
#include <vector>

namespace zeph {

class UserDefaults;

/// A secret that lies under the bare name of its service and belongs to an account.
struct SecretMove {
    QString provider;
    QUuid id;

    bool operator==(const SecretMove &) const = default;
};

/// What is still to be done to secrets, kept in the settings so that a process that ends while the
/// keyring waits for a password leaves no secret behind and loses none. Holds names, never a
/// secret. Callable from any thread.
class PendingSecrets {
public:
    explicit PendingSecrets(UserDefaults &defaults);

    std::vector<SecretMove> moves() const;
    std::vector<QUuid> erasures() const;

    /// Endpoints that were removed from the list, while the list in the keyring still has them.
    std::vector<QUuid> endpoints() const;

    void add(const SecretMove &move);
    void done(const SecretMove &move);

    /// Every erasure is noted until as many are done as were noted by this object.
    void addErasure(const QUuid &id);
    void erased(const QUuid &id);

    void addEndpoint(const QUuid &id);
    void endpointsErased(const std::vector<QUuid> &ids);

private:
    QJsonObject stored() const;
    std::vector<QUuid> ids(const QString &name) const;
    void addId(const QString &name, const QUuid &id);
    void removeIds(const QString &name, const std::vector<QUuid> &ids);
    void change(const std::function<void(QJsonObject &)> &edit);

    UserDefaults &m_defaults;
    mutable std::mutex m_lock;        // for what follows
    QHash<QUuid, int> m_openErasures; // of this process
    mutable std::mutex m_storage;     // held while the stored value is read, changed and written
};

} // namespace zeph
