// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUuid>

#include <map>
#include <set>

namespace zeph {

class UserDefaults;

/// What is still to be done to secrets, kept in the settings: a keyring that refuses, or a process
/// that ends while it is asked, leaves no secret behind and loses none. Holds names, never a
/// secret.
struct PendingSecrets {
    std::map<QString, QUuid> moves = {}; ///< from the bare name of a service to an account
    std::set<QUuid> erasures = {};       ///< accounts whose secret is to go
    std::set<QUuid> endpoints = {};      ///< removed, while the list in the keyring still has them
    std::set<QUuid> removals = {};       ///< accounts whose secret is to go unless they come back

    static PendingSecrets read(const UserDefaults &defaults);

    /// Writes only what has changed, and nothing at all where nothing is left to do.
    void save(UserDefaults &defaults) const;
};

} // namespace zeph
