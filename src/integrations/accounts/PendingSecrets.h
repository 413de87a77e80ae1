// SPDX-License-Identifier: MIT
#pragma once

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

    void add(const SecretMove &move);
    void done(const SecretMove &move);
    void addErasure(const QUuid &id);
    void erased(const QUuid &id);

private:
    QJsonObject stored() const;
    void change(const std::function<void(QJsonObject &)> &edit);

    UserDefaults &m_defaults;
    mutable std::mutex m_lock; // held while the stored value is read, changed and written
};

} // namespace zeph
